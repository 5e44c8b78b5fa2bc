// An A/V Control object while the engine has no instance for it: outside the document, or not displayed. It behaves as
// one without media. What a page sets meanwhile waits on the element for the instance.
(function(objects) {
  // Returns a method that does nothing and warns the page's author why.
  function refuse(element, method) {
    return function() {
      objects.warn(method + '() returns false and does nothing: the object is ' +
        (document.documentElement.contains(element) ? 'not displayed' : 'not in the document'));
      return false;
    };
  }

  function notOffered() {
    return 'undefined';
  }

  objects.define('media', function(element) {
    return {
      get playState() { return 0; },
      get playPosition() { return 'undefined'; },
      get playTime() { return undefined; },
      get speed() { return 1; },
      COMPONENT_TYPE_VIDEO: 0,
      COMPONENT_TYPE_AUDIO: 1,
      COMPONENT_TYPE_SUBTITLE: 2,
      play: refuse(element, 'play'),
      stop: refuse(element, 'stop'),
      seek: refuse(element, 'seek'),
      next: refuse(element, 'next'),
      previous: refuse(element, 'previous'),
      queue: refuse(element, 'queue'),
      setFullScreen: refuse(element, 'setFullScreen'),
      setVolume: refuse(element, 'setVolume'),
      getComponents: function() { return objects.emptyCollection(); },
      getCurrentActiveComponents: function() { return objects.emptyCollection(); },
      selectComponent: function() {},
      unselectComponent: function() {},
      getSinkProtocolInfo: notOffered,
      getTransportStateVariables: notOffered,
      setTransportStateVariables: notOffered,
      getPluginType: function() { return 7; },
      getMediaHandle: function() { return -1; },
      getPluginElement: function() { return element; }
    };
  });

  // These wait on the element; after an instance has gone, its record answers. What the engine has of its own, such as
  // `onfocus`, waits there by itself.
  objects.keptProperties.filter(function(name) {
    return !(name in HTMLObjectElement.prototype);
  }).forEach(objects.addMember);

  function override(name, record) {
    var inherited = HTMLObjectElement.prototype[name];
    Object.defineProperty(HTMLObjectElement.prototype, name, {
      configurable: true,
      writable: true,
      value: function(type, listener, capture) {
        var own = objects.typeOf(this);
        // What the object would reject is not kept for it.
        var accepted = Object(listener) === listener &&
          (arguments.length === 2 || arguments.length === 3 && (capture === null || typeof capture === 'boolean'));
        if (accepted && objects.keptListeners.indexOf(type) >= 0 && (own === '' || objects.isMedia(own))) {
          record(this, objects.keptListener + type, listener);
        }
        return inherited.apply(this, arguments);
      }
    });
  }

  function keep(element, name, value) {
    Object.defineProperty(element, name, {configurable: true, writable: true, value: value});
  }

  override('addEventListener', keep);
  override('removeEventListener', function(element, name) { keep(element, name, undefined); });
})
