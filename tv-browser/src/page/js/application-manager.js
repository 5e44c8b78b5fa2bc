// application/oipfApplicationManager (OIPF DAE 7.2): one application, the page in the main frame.
(function(objects, television) {
  var LARGEST_MASK = 0xffffffff;

  // A mask that is not a number changes nothing; the page's author is warned.
  function setKeyset(mask, otherKeys) {
    var number = Number(mask);
    if (!(Math.abs(number) <= LARGEST_MASK)) {
      objects.warn('the key set ' + mask + ' is ignored: pass a sum of the constants of the keyset object');
      return television.keyset;
    }
    var codes = otherKeys === undefined || otherKeys === null ? [] : otherKeys;
    if (!Array.isArray(codes)) {
      objects.warn('the other keys ' + codes + ' of the key set are ignored: pass an array of key codes');
      codes = [];
    }
    return television.setKeyset(number | 0, codes.map(function(code) { return code | 0; }));
  }

  var keyset = {
    get value() { return television.keyset; },
    set value(mask) { setKeyset(mask); },
    get otherKeys() { return television.otherKeys; },
    get maximumValue() { return television.supportedKeyset; },
    get maximumOtherKeys() { return []; },
    supportsPointer: false,
    setValue: setKeyset,
    getKeyIcon: function() { return null; },
    getKeyLabel: function(code) { return television.keyLabel(code); }
  };
  Object.keys(objects.keysetConstants).forEach(function(name) {
    Object.defineProperty(keyset, name, {value: objects.keysetConstants[name], enumerable: true});
  });

  if (window === window.top) {
    window.addEventListener('DOMContentLoaded', function() { television.completeDocument(); });
  }

  var managers = []; // elements, with their models, that may have handlers
  function loadFailed() {
    managers.forEach(function(manager) {
      objects.raise(manager.element, manager.model, 'ApplicationLoadError', ['appl'], [application]);
    });
  }

  var application = {
    get visible() { return television.visible; },
    active: true,
    permissions: objects.emptyCollection(),
    isPrimaryReceiver: true,
    window: window.top,
    privateData: {
      keyset: keyset,
      currentChannel: null,
      getFreeMem: function() { return 64 * 1024 * 1024; }
    },
    onApplicationActivated: null,
    onApplicationDeactivated: null,
    onApplicationShown: null,
    onApplicationHidden: null,
    show: function() { return change(true); },
    hide: function() { return change(false); },
    activate: function() {},
    deactivate: function() {},
    activateInput: function() { return true; },
    deactivateInput: function() {},
    createApplication: function(uri) {
      var base = document.createElement('a');
      base.href = uri;
      if (television.createApplication(base.href)) {
        return application;
      }
      loadFailed();
      return null;
    },
    destroyApplication: function() { television.destroyApplication(); }
  };

  function change(visible) {
    if (television.visible !== visible) {
      television.setVisible(visible);
      setTimeout(function() {
        var handler = visible ? application.onApplicationShown : application.onApplicationHidden;
        if (typeof handler === 'function') {
          handler.call(application, application);
        }
      }, 0);
    }
    return true;
  }

  objects.define('application/oipfapplicationmanager', function(element) {
    var model = {
      onLowMemory: null,
      onApplicationLoaded: null,
      onApplicationUnloaded: null,
      onApplicationLoadError: null,
      getOwnerApplication: function() { return application; },
      getChildApplications: function() { return objects.emptyCollection(); },
      getApplicationVisualizationMode: function() { return 1; }
    };
    if (element) {
      managers.push({element: element, model: model});
    }
    return model;
  });
})
