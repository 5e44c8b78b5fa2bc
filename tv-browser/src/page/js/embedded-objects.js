// Gives an <object> element whose type is a television's the members of that object.
//
// The members are accessors on the prototype of all object elements, which look at the element's type at each use. So
// they are there before any script of the page runs, and it does not matter how the element was created.
(function(objects) {
  var makers = {}; // by type
  var made = new WeakMap(); // element: {type, model}

  function typeOf(element) {
    return (element.getAttribute('type') || '').toLowerCase();
  }

  // The types of A/V Control objects are those of the plug-in.
  function pluginFileOf(mimeType) {
    return mimeType && mimeType.enabledPlugin ? mimeType.enabledPlugin.filename : '';
  }
  var pluginFile = pluginFileOf(navigator.mimeTypes['video/mp4']);
  var mediaTypes = Array.prototype.filter.call(navigator.mimeTypes, function(mimeType) {
    return pluginFile && pluginFileOf(mimeType) === pluginFile;
  }).map(function(mimeType) { return mimeType.type; }).sort();

  function modelOf(element) {
    var type = typeOf(element);
    var entry = made.get(element);
    if (!entry || entry.type !== type) {
      var maker = objects.isMedia(type) ? makers.media : makers[type];
      entry = {type: type, model: maker ? maker(element) : null};
      made.set(element, entry);
      if (!maker && /^(video|audio)\//.test(type)) {
        objects.warn('an object of type ' + type + ' has no player and no methods; the types that have them are ' +
          mediaTypes.join(', '));
      }
    }
    return entry.model;
  }

  // Lets the models answer for a name. On an element whose model does not have it, the name behaves as usual.
  objects.addMember = function(name) {
    if (HTMLObjectElement.prototype.hasOwnProperty(name)) {
      return;
    }
    Object.defineProperty(HTMLObjectElement.prototype, name, {
      configurable: true,
      get: function() {
        var model = modelOf(this);
        // The value that the page gave to the former instance of an A/V Control object that waits for its next one.
        return model && name in model ? model[name] : this[objects.keptProperty + name];
      },
      set: function(value) {
        var model = modelOf(this);
        if (model && name in model) {
          model[name] = value;
        } else {
          Object.defineProperty(this, name, {configurable: true, enumerable: true, writable: true, value: value});
        }
      }
    });
  };

  // Is it the type of an A/V Control object?
  objects.isMedia = function(type) {
    return mediaTypes.indexOf(type) >= 0;
  };

  objects.typeOf = typeOf;

  objects.isKnown = function(type) {
    return objects.isMedia(type) || makers.hasOwnProperty(type);
  };

  // Defines a type. `maker` takes an element and returns an object with the members of that type; it must not look at
  // the element before one of them is used. The type `media` stands for all types of A/V Control objects.
  objects.define = function(type, maker) {
    makers[type] = maker;
    Object.getOwnPropertyNames(maker(null)).forEach(objects.addMember);
  };

  // Reports an event to the page after the present script has returned: to the handler of the model, with the values
  // as arguments, and as a DOM event, which has them as properties with the given names.
  objects.raise = function(element, model, type, names, values) {
    setTimeout(function() {
      var handler = model['on' + type];
      if (typeof handler === 'function') {
        handler.apply(element, values);
      }
    }, 0);
    setTimeout(function() {
      var event = document.createEvent('Event');
      event.initEvent(type, false, false);
      names.forEach(function(name, i) { event[name] = values[i]; });
      element.dispatchEvent(event);
    }, 0);
  };

  // An empty collection in the form of the standard's.
  objects.emptyCollection = function(methods) {
    var collection = {length: 0, item: function() { return undefined; }};
    (methods || []).forEach(function(name) { collection[name] = function() { return null; }; });
    return collection;
  };

  // A page that scales itself by the screen finds the television's, not the desk's.
  var size = objects.screenSize;
  var screenSize = {width: size.width, height: size.height, availWidth: size.width, availHeight: size.height};
  Object.keys(screenSize).forEach(function(name) {
    Object.defineProperty(Screen.prototype, name, {configurable: true, enumerable: true,
      get: function() { return screenSize[name]; }});
  });

  // Returns the fields of the user agent.
  objects.terminal = function() {
    var fields = (/HbbTV\/[0-9.]+ *\(([^)]*)\)/.exec(navigator.userAgent) || ['', ''])[1].split(/ *; */);
    var field = function(i) { return fields[i] || ''; };
    return {
      capabilities: field(0),
      vendorName: field(1),
      modelName: field(2),
      softwareVersion: field(3),
      hardwareVersion: field(4),
      familyName: field(5)
    };
  };
})
