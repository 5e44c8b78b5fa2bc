// A player page for HbbTV televisions, in the JavaScript that all of them understand.
(function () {
  'use strict';

  var STOPPED = 0, PLAYING = 1, PAUSED = 2, CONNECTING = 3, FINISHED = 5, ERROR = 6;
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
    red: 403, green: 404, yellow: 405, blue: 406, play: 415, pause: 19, stop: 413, fast: 417, rewind: 412
  };
  var STEP_MS = 10000;
  var HIDE_AFTER_MS = 5000;
  // "infinite" would last until stop(), with no way back in between; a count can be lowered again.
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

  function chooseFilm() {
    var playing = films.playedBy(video);
    var entries = films.list.map(function (film) {
      return { name: film.title, note: film.form, chosen: film === playing };
    });
    menu.open('Film', entries, function (index) { openFilm(films.list[index]); });
  }

  function chooseTrack(title, entries, hint) {
    if (!entries.length) {
      say(hint);
      return;
    }
    menu.open(title, entries, function (index) { tracks.select(video, entries[index]); });
  }

  function chooseSound() {
    chooseTrack('Sound', tracks.sound(video), 'There is no sound to choose. Press Play first.');
  }

  function chooseSubtitles() {
    chooseTrack('Subtitles', tracks.subtitles(video), 'No subtitles here: choose The voyage, and play it.');
  }

  // What the object reports

  function showPosition() {
    display.showPosition(video);
  }

  function onState(state) {
    if (state === ERROR) {
      queued = null;
      say(ERRORS[video.error] || 'Error ' + video.error + '.', true);
    } else if (state === CONNECTING && queued && films.playedBy(video) === queued) {
      say(queued.title + ' begins.');
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

  // Another film, in an object of its own: the type of an object and its subtitles stay what they are.
  function openFilm(film) {
    var wasFull = video.fullScreen;
    var former = video;
    video = document.createElement('object');
    video.id = 'video';
    video.type = film.type;
    (film.subtitles || []).forEach(function (description) {
      var parameter = document.createElement('param');
      parameter.name = 'subtitles';
      parameter.value = description;
      video.appendChild(parameter);
    });
    video.data = film.url;
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

  // What the buttons and keys do

  function play(speed) {
    if (video.playState === ERROR) {
      video.stop(); // The way out of an error.
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
      say('The film cannot be moved to ' + display.timeText(target) + '.');
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
    var next = films.toQueueAfter(video);
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
    film: chooseFilm,
    sound: chooseSound,
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
      return wereHidden ? false : undefined; // A key that only brings the controls back does nothing else.
    }
    return false;
  };

  // Start

  if (typeof video.playState === 'undefined') {
    say('This browser has no A/V Control object: it cannot play a film.', true);
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
