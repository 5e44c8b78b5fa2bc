// What makes an <object> of a television's type answer as that object.
//
// The members sit as accessors on the prototype of all object elements and look at the element's type with each use: so
// they are there however the element was made, and before any script of the page runs.
(function(objects) {
  var makers = {}; // by type
  var made = new WeakMap(); // element: {type, model}

  function typeOf(element) {
    return (element.getAttribute('type') || '').toLowerCase();
  }

  // The types of A/V Control objects are the plug-in's.
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
        objects.warn('an object of type ' + type + ' has no player and none of its methods; there are ' +
          mediaTypes.join(', '));
      }
    }
    return entry.model;
  }

  // Makes a name go to the models; one that the element's model does not have is as if this were not there.
  objects.addMember = function(name) {
    if (HTMLObjectElement.prototype.hasOwnProperty(name)) {
      return;
    }
    Object.defineProperty(HTMLObjectElement.prototype, name, {
      configurable: true,
      get: function() {
        var model = modelOf(this);
        // Of a media object that waits for its instance: what its former instance was given.
        return model && name in model ? model[name] : this['avcontrol kept ' + name];
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

  // `maker` is given an element, and gives an object with the members of that type. It does not look at the element
  // before one of them is used. The type `media` stands for all types of A/V Control objects.
  objects.define = function(type, maker) {
    makers[type] = maker;
    Object.getOwnPropertyNames(maker(null)).forEach(objects.addMember);
  };

  // Tells the page of an event, when the present script has returned: by the handler of the model, which gets the
  // values as arguments, and by a DOM event, which has them as properties of the names given.
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

  // An empty list as the standard's collections are.
  objects.emptyCollection = function(methods) {
    var collection = {length: 0, item: function() { return undefined; }};
    (methods || []).forEach(function(name) { collection[name] = function() { return null; }; });
    return collection;
  };

  // A page that scales itself by the screen finds the television's, not the desk's.
  var screenSize = {width: 1280, height: 720, availWidth: 1280, availHeight: 720};
  Object.keys(screenSize).forEach(function(name) {
    Object.defineProperty(Screen.prototype, name, {configurable: true, enumerable: true,
      get: function() { return screenSize[name]; }});
  });

  // The fields of the user agent: capabilities, vendor, model, software, hardware, family.
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
