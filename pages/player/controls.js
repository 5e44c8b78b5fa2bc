// The page's buttons, and the focus, which the arrow keys move.
var controls = (function () {
  'use strict';

  var ROWS = [
    ['media'], ['audio'], ['subtitles'],
    ['play', 'pause'], ['back10', 'forward10'], ['stop', 'full'],
    ['reverse', 'speed2'], ['speed4', 'speed8'], ['queue', 'loop']
  ];
  var row = 3, column = 0; // Play

  function mark(isFocused) {
    var button = document.getElementById(ROWS[row][column]);
    button.className = button.className.replace(/ ?focus/, '') + (isFocused ? ' focus' : '');
  }

  mark(true);

  return {
    focusedId: function () {
      return ROWS[row][column];
    },

    move: function (columns, rows) {
      var next = ROWS[row + rows];
      if (!next) {
        return;
      }
      mark(false);
      row += rows;
      column = Math.max(0, Math.min(next.length - 1, column + columns));
      mark(true);
    }
  };
}());
