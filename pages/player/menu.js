// A list over the right side of the screen: up and down move, Enter selects, Back closes it.
var menu = (function () {
  'use strict';

  var VISIBLE = 8;
  var panel = document.getElementById('menu');
  var title = document.getElementById('menu-title');
  var list = document.getElementById('menu-items');
  var entries = [];
  var focused = 0;
  var choose = null;

  function addSpan(parent, kind, text) {
    var span = document.createElement('span');
    span.className = kind;
    span.appendChild(document.createTextNode(text));
    parent.appendChild(span);
  }

  // Draws the part of the list that contains the focus.
  function draw() {
    var first = Math.max(0, Math.min(focused - VISIBLE + 2, entries.length - VISIBLE));
    list.innerHTML = '';
    for (var i = first; i < Math.min(entries.length, first + VISIBLE); ++i) {
      var row = document.createElement('div');
      row.className = i === focused ? 'focus' : '';
      addSpan(row, 'mark', entries[i].chosen ? '\u2713' : '');
      addSpan(row, 'name', entries[i].name);
      addSpan(row, 'value', entries[i].note || '');
      list.appendChild(row);
    }
  }

  function close() {
    choose = null;
    panel.style.display = 'none';
  }

  return {
    isOpen: function () { return choose !== null; },
    close: close,

    // entries: [{name, note, chosen}]; onChoose gets the index of the selected entry.
    open: function (name, newEntries, onChoose) {
      title.textContent = name;
      entries = newEntries;
      choose = onChoose;
      focused = 0;
      for (var i = 0; i < entries.length; ++i) {
        focused = entries[i].chosen ? i : focused;
      }
      draw();
      panel.style.display = 'block';
    },

    move: function (rows) {
      focused = Math.max(0, Math.min(entries.length - 1, focused + rows));
      draw();
    },

    enter: function () {
      var chosen = choose;
      close();
      chosen(focused);
    }
  };
}());
