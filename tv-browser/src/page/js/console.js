// What the console and this television's own messages say on the terminal, and at which place of the page.
(function(objects, television) {
  'use strict';

  function isPlain(value) {
    return Array.isArray(value) || Object.prototype.toString.call(value) === '[object Object]' && !value.nodeType;
  }

  function textOf(value) {
    try {
      return isPlain(value) ? JSON.stringify(value) : String(value);
    } catch (error) {
      return Object.prototype.toString.call(value); // Such as one that contains itself.
    }
  }

  // The engine tells the television the first argument only.
  ['log', 'debug', 'info', 'warn', 'error'].forEach(function(name) {
    var original = console[name];
    console[name] = function() {
      if (arguments.length > 0) {
        television.announceConsoleText(Array.prototype.map.call(arguments, textOf).join(' '));
      }
      return original.apply(console, arguments); // A tail call: the place that the engine tells is the caller's.
    };
  });

  // Tells the author something that the page's script should do otherwise.
  objects.warn = function(text) {
    // This television's own scripts have no address.
    var place = /^(?:[^@\n]*@)?([a-z]+:.+):(\d+):\d+$/m.exec(new Error().stack) || ['', location.href, '0'];
    television.warn(text, place[1], Number(place[2]));
  };

  window.open = function(address) {
    objects.warn('window.open(' + textOf(address) + ') opens nothing: this television has one window; ' +
      'use location or createApplication()');
    return null;
  };
})
