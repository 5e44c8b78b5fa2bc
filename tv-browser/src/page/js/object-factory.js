// oipfObjectFactory (OIPF DAE 7.1).
(function(objects) {
  var types = {
    VideoBroadcast: 'video/broadcast',
    VideoMpeg: 'video/mpeg',
    ApplicationManager: 'application/oipfApplicationManager',
    Capabilities: 'application/oipfCapabilities',
    Configuration: 'application/oipfConfiguration',
    DrmAgent: 'application/oipfDrmAgent'
  };

  var factory = {
    isObjectSupported: function(type) { return objects.isKnown(String(type).toLowerCase()); }
  };
  Object.keys(types).forEach(function(name) {
    factory['create' + name + 'Object'] = function() {
      var element = document.createElementNS('http://www.w3.org/1999/xhtml', 'object');
      element.setAttribute('type', types[name]);
      return element;
    };
  });
  window.oipfObjectFactory = factory;
})
