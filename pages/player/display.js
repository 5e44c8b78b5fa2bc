// What the page shows about an object beside its video: state, speed, position, selections; and the page's messages.
var display = (function () {
  'use strict';

  var STATES = ['Stopped', 'Playing', 'Paused', 'Connecting', 'Buffering', 'Finished', 'Error'];
  var STATE_KINDS = ['', 'playing', '', 'waiting', 'waiting', '', 'error'];
  var BAR_WIDTH = 720;

  function element(id) {
    return document.getElementById(id);
  }

  function setText(id, text) {
    var node = element(id);
    if (node.textContent !== text) {
      node.textContent = text;
    }
  }

  // Switches one of the page's modes, which the style sheet uses: full, idle, audio-only.
  function setMode(name, isOn) {
    var others = document.body.className.split(' ').filter(function (other) { return other && other !== name; });
    document.body.className = (isOn ? others.concat(name) : others).join(' ');
  }

  // Milliseconds as "01:23.4"; dashes until there is a number.
  function timeText(ms) {
    if (typeof ms !== 'number' || ms < 0) {
      return '--:--';
    }
    var tenths = Math.floor(ms / 100);
    var minutes = Math.floor(tenths / 600);
    var seconds = Math.floor(tenths / 10) % 60;
    return (minutes < 10 ? '0' : '') + minutes + (seconds < 10 ? ':0' : ':') + seconds + '.' + tenths % 10;
  }

  function showSpeed(video) {
    setText('speed', 'Speed ' + String(video.speed).replace('-', '\u2212') + '\u00d7');
  }

  function showPosition(video) {
    var position = video.playPosition;
    var duration = video.playTime;
    var part = position >= 0 && duration > 0 ? Math.min(position / duration, 1) : 0;
    setText('position', timeText(position));
    setText('duration', timeText(duration));
    element('bar-done').style.width = Math.round(part * BAR_WIDTH) + 'px';
  }

  function showChoices(video) {
    var values = {
      media: media.playedBy(video).title,
      audio: tracks.chosenName(tracks.audio(video)),
      subtitles: tracks.chosenName(tracks.subtitles(video))
    };
    for (var id in values) {
      element(id).lastChild.textContent = values[id];
    }
  }

  return {
    setMode: setMode,
    timeText: timeText,
    showSpeed: showSpeed,
    showPosition: showPosition,
    showChoices: showChoices,

    showState: function (video, state) {
      var item = media.playedBy(video);
      setText('state', STATES[state] + ' (' + state + ')');
      element('state').className = STATE_KINDS[state];
      setText('badge-form', item.form);
      setMode('audio-only', !!item.audioOnly);
      showChoices(video);
      showSpeed(video);
      showPosition(video);
    },

    showClock: function () {
      var now = new Date();
      var minutes = now.getMinutes();
      setText('badge-clock', now.getHours() + (minutes < 10 ? ':0' : ':') + minutes);
    },

    say: function (text, isError) {
      setText('message', text);
      element('message').className = isError ? 'error' : '';
    }
  };
}());
