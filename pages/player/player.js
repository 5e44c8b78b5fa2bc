// A player page for HbbTV televisions, in the JavaScript that all of them understand.
(function () {
  'use strict';

  var FILMS = [
    { url: 'media/film.mp4', title: 'Demonstration film' },
    { url: 'media/second.mp4', title: 'Second film' }
  ];
  var STATES = ['Stopped', 'Playing', 'Paused', 'Connecting', 'Buffering', 'Finished', 'Error'];
  var STOPPED = 0, PLAYING = 1, PAUSED = 2, CONNECTING = 3, BUFFERING = 4, FINISHED = 5, ERROR = 6;
  var ERRORS = [
    'The television cannot play the format of this film.',
    'The connection to the film\'s server has failed.',
    'The film cannot be played, for a reason unknown.',
    'The television has no decoder to spare for the film.',
    'The film is damaged.',
    'The film was not found on its server.',
    'The film is not to be had at this position.'
  ];
  // Televisions define VK_ names; these are their values where a browser does not.
  var KEY = {
    left: 37, up: 38, right: 39, down: 40, enter: 13, back: 461,
    red: 403, green: 404, yellow: 405, play: 415, pause: 19, stop: 413, fast: 417, rewind: 412
  };
  var COLUMNS = 2;
  var BAR_WIDTH = 720;
  var STEP_MS = 10000;
  var HIDE_AFTER_MS = 5000;
  // "infinite" would last until stop(), with no way back in between; a count can be lowered again.
  var MANY_TIMES = 1000;

  var video = element('video');
  var buttons = element('controls').getElementsByTagName('button');
  var focused = 0;
  var looping = false;
  var queued = null;
  var hideTimer = null;

  function element(id) {
    return document.getElementById(id);
  }

  function setText(id, text) {
    var node = element(id);
    if (node.textContent !== text) {
      node.textContent = text;
    }
  }

  function say(text, isError) {
    setText('message', text);
    element('message').className = isError ? 'error' : '';
  }

  // Milliseconds as "01:23.4"; what is no number yet as dashes.
  function timeText(ms) {
    if (typeof ms !== 'number' || ms < 0) {
      return '--:--';
    }
    var tenths = Math.floor(ms / 100);
    var minutes = Math.floor(tenths / 600);
    var seconds = Math.floor(tenths / 10) % 60;
    return (minutes < 10 ? '0' : '') + minutes + (seconds < 10 ? ':0' : ':') + seconds + '.' + tenths % 10;
  }

  function filmPlaying() {
    return String(video.data).indexOf(FILMS[1].url) >= 0 ? FILMS[1] : FILMS[0];
  }

  // What the object shows

  function showState(state) {
    var kinds = ['', 'playing', '', 'waiting', 'waiting', '', 'error'];
    setText('state', STATES[state] + ' (' + state + ')');
    element('state').className = kinds[state];
    setText('badge-title', filmPlaying().title);
    showSpeed();
    showPosition();
  }

  function showSpeed() {
    setText('speed', 'Speed ' + String(video.speed).replace('-', '\u2212') + '\u00d7');
  }

  function showPosition() {
    var position = video.playPosition;
    var duration = video.playTime;
    var part = position >= 0 && duration > 0 ? Math.min(position / duration, 1) : 0;
    setText('position', timeText(position));
    setText('duration', timeText(duration));
    element('bar-done').style.width = Math.round(part * BAR_WIDTH) + 'px';
  }

  function showClock() {
    var now = new Date();
    var minutes = now.getMinutes();
    setText('badge-clock', now.getHours() + (minutes < 10 ? ':0' : ':') + minutes);
  }

  function showModes() {
    element('loop').lastChild.nodeValue = looping ? 'Loop: on' : 'Loop: off';
    element('queue').lastChild.nodeValue = queued ? 'Queued' : 'Queue next';
    element('full').lastChild.nodeValue = video.fullScreen ? 'Window' : 'Full screen';
  }

  // What the object reports

  video.onPlayStateChange = function (state) {
    if (state === ERROR) {
      queued = null;
      say(ERRORS[video.error] || 'Error ' + video.error + '.', true);
    } else if (state === CONNECTING && queued && filmPlaying() === queued) {
      say(queued.title + ' begins.');
      queued = null;
    } else if (state === PLAYING && element('message').className === 'error') {
      say('');
    }
    showModes();
    showState(state);
  };

  video.onPlaySpeedChanged = showSpeed;
  video.onPlayPositionChanged = showPosition;

  video.onFullScreenChange = function () {
    document.body.className = video.fullScreen ? 'full' : '';
    showModes();
    showControls();
  };

  // What the buttons and keys do

  function play(speed) {
    if (video.playState === ERROR) {
      video.stop(); // The way out of an error.
    }
    video.play(speed);
    showSpeed();
  }

  function seekBy(ms) {
    var state = video.playState;
    if (state === STOPPED || state === FINISHED || state === ERROR) {
      say('Press Play first.');
      return;
    }
    var target = Math.max(0, Number(video.playPosition) + ms);
    if (video.playTime > 0) {
      target = Math.min(target, video.playTime);
    }
    if (video.seek(target)) {
      say('Moved to ' + timeText(target) + '.');
    } else {
      say('The film cannot be moved to ' + timeText(target) + '.');
    }
    showPosition();
  }

  function playFast(speed) {
    if (speed < 0 && video.playState !== PLAYING && video.playState !== PAUSED) {
      say('Press Play first.');
      return;
    }
    play(speed);
  }

  function queueNext() {
    var state = video.playState;
    var next = filmPlaying() === FILMS[0] ? FILMS[1] : FILMS[0];
    if (state === ERROR) {
      say('Press Play first.');
    } else if (!video.queue(next.url)) {
      say('A film is queued already.');
    } else if (state !== STOPPED && state !== FINISHED) { // In those two it has begun.
      queued = next;
      say(next.title + ' will follow' + (looping ? ' when loop is off.' : '.'));
    }
    showModes();
  }

  function toggleLoop() {
    looping = !looping;
    video.loop = looping ? MANY_TIMES : 1;
    say(looping ? 'The film will begin anew at its end.' : 'The film will end at its end.');
    showModes();
  }

  function toggleFullScreen() {
    video.setFullScreen(!video.fullScreen);
  }

  function stop() {
    video.stop(); // Drops a queued film, too.
    queued = null;
    showModes();
  }

  var actions = {
    play: function () { play(1); },
    pause: function () { video.play(0); },
    stop: stop,
    back10: function () { seekBy(-STEP_MS); },
    forward10: function () { seekBy(STEP_MS); },
    full: toggleFullScreen,
    reverse: function () { playFast(-2); },
    speed2: function () { playFast(2); },
    speed4: function () { playFast(4); },
    speed8: function () { playFast(8); },
    queue: queueNext,
    loop: toggleLoop
  };

  // Focus and keys

  function focusButton(index) {
    if (index < 0 || index >= buttons.length) {
      return;
    }
    buttons[focused].className = '';
    focused = index;
    buttons[focused].className = 'focus';
  }

  function moveFocus(columns, rows) {
    var column = focused % COLUMNS + columns;
    if (column >= 0 && column < COLUMNS) {
      focusButton(focused + columns + rows * COLUMNS);
    }
  }

  function showControls() {
    document.body.className = document.body.className.replace(' idle', '');
    clearTimeout(hideTimer);
    if (video.fullScreen) {
      hideTimer = setTimeout(function () { document.body.className += ' idle'; }, HIDE_AFTER_MS);
    }
  }

  function playKey(code) {
    switch (code) {
    case KEY.play: play(1); return true;
    case KEY.pause: video.play(0); return true;
    case KEY.stop: stop(); return true;
    case KEY.fast: playFast(Math.min(Math.max(video.speed, 1) * 2, 8)); return true;
    case KEY.rewind: playFast(-2); return true;
    case KEY.red: toggleFullScreen(); return true;
    case KEY.green: queueNext(); return true;
    case KEY.yellow: toggleLoop(); return true;
    }
    return false;
  }

  function pageKey(code) {
    switch (code) {
    case KEY.left: moveFocus(-1, 0); return true;
    case KEY.right: moveFocus(1, 0); return true;
    case KEY.up: moveFocus(0, -1); return true;
    case KEY.down: moveFocus(0, 1); return true;
    case KEY.enter: actions[buttons[focused].id](); return true;
    }
    return false;
  }

  document.onkeydown = function (event) {
    var code = event.keyCode;
    var wereHidden = document.body.className.indexOf('idle') >= 0;
    showControls();
    if (code === KEY.back && video.fullScreen) {
      toggleFullScreen();
    } else if (!playKey(code) && (wereHidden || !pageKey(code))) {
      return wereHidden ? false : undefined; // A key that only brings the controls back does nothing else.
    }
    return false;
  };

  // Start

  if (typeof video.playState === 'undefined') {
    say('This browser has no A/V Control object: it cannot play a film.', true);
    return;
  }
  focusButton(0);
  showModes();
  showState(STOPPED);
  showClock();
  setInterval(showPosition, 200);
  setInterval(showClock, 1000);
  play(1);
}());
