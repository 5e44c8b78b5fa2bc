// A player page for HbbTV televisions, in JavaScript that all of them understand.
(function () {
  'use strict';

  var STOPPED = 0, PLAYING = 1, PAUSED = 2, CONNECTING = 3, FINISHED = 5, ERROR = 6;
  var ERRORS = [
    'The television does not support this format.',
    'The connection to the server has failed.',
    'Playback has failed for an unknown reason.',
    'The television has no free decoder.',
    'The content is damaged.',
    'The content was not found on its server.',
    'The content is not available at this position.'
  ];
  // Televisions define VK_ names. These are the values for browsers that do not.
  var KEY = {
    left: 37, up: 38, right: 39, down: 40, enter: 13, back: 461,
    red: 403, green: 404, yellow: 405, blue: 406, play: 415, pause: 19, stop: 413, fast: 417, rewind: 412
  };
  var STEP_MS = 10000;
  var HIDE_AFTER_MS = 5000;
  // "infinite" lasts until stop(). A count can be lowered before that.
  var MANY_TIMES = 1000;

  var say = display.say;
  var video = element('video');
  var looping = false;
  var queued = null;
  var hideTimer = null;

  function element(id) {
    return document.getElementById(id);
  }

  function showModes() {
    element('loop').lastChild.nodeValue = looping ? 'Loop: on' : 'Loop: off';
    element('queue').lastChild.nodeValue = queued ? 'Queued' : 'Queue next';
    element('full').lastChild.nodeValue = video.fullScreen ? 'Window' : 'Full screen';
  }

  function chooseMedia() {
    var playing = media.playedBy(video);
    var entries = media.list.map(function (item) {
      return { name: item.title, note: item.form, chosen: item === playing };
    });
    menu.open('Media', entries, function (index) { openMedia(media.list[index]); });
  }

  function chooseTrack(title, entries, hint) {
    if (!entries.length) {
      say(hint);
      return;
    }
    menu.open(title, entries, function (index) { tracks.select(video, entries[index]); });
  }

  function chooseAudio() {
    chooseTrack('Audio', tracks.audio(video), 'There is no audio track to select. Press Play first.');
  }

  function chooseSubtitles() {
    chooseTrack('Subtitles', tracks.subtitles(video), 'There are no subtitles. Select and play The voyage.');
  }

  // Reports of the object

  function showPosition() {
    display.showPosition(video);
  }

  function onState(state) {
    if (state === ERROR) {
      queued = null;
      say(ERRORS[video.error] || 'Error ' + video.error + '.', true);
    } else if (state === CONNECTING && queued && media.playedBy(video) === queued) {
      say(queued.title + ' starts.');
      queued = null;
    } else if (state === PLAYING && element('message').className === 'error') {
      say('');
    }
    showModes();
    display.showState(video, state);
  }

  function onFullScreen() {
    display.setMode('full', video.fullScreen);
    showModes();
    showControls();
  }

  function listen() {
    video.onPlayStateChange = onState;
    video.onPlaySpeedChanged = function () { display.showSpeed(video); };
    video.onPlayPositionChanged = showPosition;
    video.onFullScreenChange = onFullScreen;
    video.onSelectedComponentChanged = function () { display.showChoices(video); };
  }

  // Opens another media item in a new object, because the type and the subtitles of an object do not change.
  function openMedia(item) {
    var wasFull = video.fullScreen;
    var former = video;
    video = document.createElement('object');
    video.id = 'video';
    video.type = item.type;
    (item.subtitles || []).forEach(function (description) {
      var parameter = document.createElement('param');
      parameter.name = 'subtitles';
      parameter.value = description;
      video.appendChild(parameter);
    });
    video.data = item.url;
    former.parentNode.replaceChild(video, former);
    listen();
    queued = null;
    say('');
    if (looping) {
      video.loop = MANY_TIMES;
    }
    play(1);
    if (wasFull) {
      video.setFullScreen(true);
    }
    showModes();
  }

  // Actions of the buttons and keys

  function play(speed) {
    if (video.playState === ERROR) {
      video.stop(); // Leaves the error state.
    }
    video.play(speed);
    display.showSpeed(video);
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
      say('Moved to ' + display.timeText(target) + '.');
    } else {
      say('Cannot move to ' + display.timeText(target) + '.');
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
    var next = media.toQueueAfter(video);
    if (state === ERROR) {
      say('Press Play first.');
    } else if (!video.queue(next.url)) {
      say('The queue is full.');
    } else if (state !== STOPPED && state !== FINISHED) { // In these states it has started.
      queued = next;
      say(next.title + ' will follow' + (looping ? ' when loop is off.' : '.'));
    }
    showModes();
  }

  function toggleLoop() {
    looping = !looping;
    video.loop = looping ? MANY_TIMES : 1;
    say(looping ? 'Playback will repeat.' : 'Playback will not repeat.');
    showModes();
  }

  function toggleFullScreen() {
    video.setFullScreen(!video.fullScreen);
  }

  function stop() {
    video.stop(); // Also drops queued media.
    queued = null;
    showModes();
  }

  var actions = {
    media: chooseMedia,
    audio: chooseAudio,
    subtitles: chooseSubtitles,
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

  // Keys

  function showControls() {
    display.setMode('idle', false);
    clearTimeout(hideTimer);
    if (video.fullScreen) {
      hideTimer = setTimeout(function () {
        menu.close();
        display.setMode('idle', true);
      }, HIDE_AFTER_MS);
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
    case KEY.blue: menu.close(); chooseSubtitles(); return true;
    }
    return false;
  }

  function pageKey(code) {
    switch (code) {
    case KEY.left: controls.move(-1, 0); return true;
    case KEY.right: controls.move(1, 0); return true;
    case KEY.up: controls.move(0, -1); return true;
    case KEY.down: controls.move(0, 1); return true;
    case KEY.enter: actions[controls.focusedId()](); return true;
    }
    return false;
  }

  function menuKey(code) {
    switch (code) {
    case KEY.up: menu.move(-1); return true;
    case KEY.down: menu.move(1); return true;
    case KEY.enter: menu.enter(); return true;
    case KEY.left: case KEY.right: return true;
    case KEY.back: menu.close(); return true;
    }
    return false;
  }

  document.onkeydown = function (event) {
    var code = event.keyCode;
    var wereHidden = document.body.className.indexOf('idle') >= 0;
    showControls();
    if (menu.isOpen() && menuKey(code)) {
      return false;
    }
    if (code === KEY.back && video.fullScreen) {
      toggleFullScreen();
    } else if (!playKey(code) && (wereHidden || !pageKey(code))) {
      return wereHidden ? false : undefined; // A key that shows the hidden controls has no other effect.
    }
    return false;
  };

  // Start

  if (typeof video.playState === 'undefined') {
    say('This browser has no A/V Control object, so it cannot play media.', true);
    return;
  }
  listen();
  showModes();
  display.showState(video, STOPPED);
  display.showClock();
  setInterval(showPosition, 200);
  setInterval(display.showClock, 1000);
  play(1);
}());
