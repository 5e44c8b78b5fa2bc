// Prints whole console messages on the terminal, and this television's own messages with the position in the page.
(function(objects, television) {
  'use strict';

  function isPlain(value) {
    return Array.isArray(value) || Object.prototype.toString.call(value) === '[object Object]' && !value.nodeType;
  }

  function textOf(value) {
    try {
      return isPlain(value) ? JSON.stringify(value) : String(value);
    } catch (error) {
      return Object.prototype.toString.call(value); // It contains itself, for example.
    }
  }

  // The engine passes only the first argument on.
  ['log', 'debug', 'info', 'warn', 'error'].forEach(function(name) {
    var original = console[name];
    console[name] = function() {
      if (arguments.length > 0) {
        television.announceConsoleText(Array.prototype.map.call(arguments, textOf).join(' '));
      }
      return original.apply(console, arguments); // A tail call: the engine reports the position of the caller.
    };
  });

  // Warns the page's author of a mistake in the page's script.
  objects.warn = function(text) {
    // The innermost position of the page: this television's own scripts have no address.
    var position = /^(?:[^@\n]*@)?([a-z]+:.+):(\d+):\d+$/m.exec(new Error().stack) || ['', location.href, '0'];
    television.warn(text, position[1], Number(position[2]));
  };

  window.open = function(address) {
    objects.warn('window.open(' + textOf(address) + ') opens nothing: this television has only one window; ' +
      'use location or createApplication() instead');
    return null;
  };
})
