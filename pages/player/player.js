// A player page for HbbTV televisions, in the JavaScript that all of them understand.
(function () {
  'use strict';

  var FILMS = [
    { url: 'media/film.mp4', type: 'video/mp4', title: 'Demonstration film', form: 'MP4' },
    { url: 'media/second.mp4', type: 'video/mp4', title: 'Second film', form: 'MP4' },
    { url: 'media/voyage.mp4', type: 'video/mp4', title: 'The voyage', form: 'MP4',
      subtitles: [
        'srclang:eng laber:English src:media/voyage-en.vtt',
        'srclang:deu laber:Deutsch src:media/voyage-de.srt'
      ] },
    { url: 'media/voyage-hls/master.m3u8', type: 'application/vnd.apple.mpegurl', title: 'The voyage', form: 'HLS' },
    { url: 'media/voyage-dash/manifest.mpd', type: 'application/dash+xml', title: 'The voyage', form: 'DASH' },
    { url: 'media/short.mp4', type: 'video/mp4', title: 'Short film', form: 'MP4' },
    { url: 'media/audio.mp3', type: 'audio/mpeg', title: 'Melody', form: 'MP3', soundOnly: true }
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
    red: 403, green: 404, yellow: 405, blue: 406, play: 415, pause: 19, stop: 413, fast: 417, rewind: 412
  };
  var AUDIO = 1, SUBTITLE = 2; // component types
  // The controls, row by row.
  var ROWS = [
    ['film'], ['sound'], ['subtitles'],
    ['play', 'pause'], ['back10', 'forward10'], ['stop', 'full'],
    ['reverse', 'speed2'], ['speed4', 'speed8'], ['queue', 'loop']
  ];
  var BAR_WIDTH = 720;
  var STEP_MS = 10000;
  var HIDE_AFTER_MS = 5000;
  // "infinite" would last until stop(), with no way back in between; a count can be lowered again.
  var MANY_TIMES = 1000;

  var video = element('video');
  var focusedRow = 3, focusedColumn = 0;
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

  // One of the modes of the page, which the style sheet knows: full, idle, sound-only.
  function setMode(name, isOn) {
    var others = document.body.className.split(' ').filter(function (other) { return other && other !== name; });
    document.body.className = (isOn ? others.concat(name) : others).join(' ');
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
    var address = String(video.data);
    return FILMS.filter(function (film) { return address.indexOf(film.url) >= 0; })[0] || FILMS[0];
  }

  // What the queue button adds: queued films play in the same object, which is one for video/mp4.
  function filmToQueue() {
    return filmPlaying() === FILMS[0] ? FILMS[1] : FILMS[0];
  }

  // What the object shows

  function showState(state) {
    var kinds = ['', 'playing', '', 'waiting', 'waiting', '', 'error'];
    setText('state', STATES[state] + ' (' + state + ')');
    element('state').className = kinds[state];
    setText('badge-form', filmPlaying().form);
    setMode('sound-only', !!filmPlaying().soundOnly);
    showChoices();
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

  // Tracks

  function trackName(track, number) {
    var name = languageName(track.language) || 'Track ' + (number + 1);
    if (track.audioDescription) {
      name += ' (described)';
    }
    return track.hearingImpaired ? name + ' (SDH)' : name;
  }

  // The tracks of a type, as entries of a menu.
  function trackEntries(type) {
    var tracks = video.getComponents(type);
    var active = video.getCurrentActiveComponents(type);
    var entries = [];
    for (var i = 0; tracks && i < tracks.length; ++i) {
      var entry = { name: trackName(tracks[i], i), chosen: false, track: tracks[i] };
      if (type === AUDIO && tracks[i].audioChannels) {
        entry.note = ['', 'mono', 'stereo'][tracks[i].audioChannels] || tracks[i].audioChannels + ' channels';
      }
      for (var j = 0; active && j < active.length; ++j) {
        entry.chosen = entry.chosen || active[j].pid === tracks[i].pid;
      }
      entries.push(entry);
    }
    return entries;
  }

  function subtitleEntries() {
    var tracks = trackEntries(SUBTITLE);
    var isOff = !tracks.some(function (entry) { return entry.chosen; });
    return tracks.length ? [{ name: 'Off', chosen: isOff, track: null }].concat(tracks) : [];
  }

  function chosenName(entries) {
    var chosen = entries.filter(function (entry) { return entry.chosen; })[0];
    return chosen ? chosen.name : '\u2013';
  }

  function showChoices() {
    var values = {
      film: filmPlaying().title,
      sound: chosenName(trackEntries(AUDIO)),
      subtitles: chosenName(subtitleEntries())
    };
    for (var id in values) {
      element(id).lastChild.textContent = values[id];
    }
  }

  function chooseFilm() {
    var playing = filmPlaying();
    var entries = FILMS.map(function (film) {
      return { name: film.title, note: film.form, chosen: film === playing };
    });
    menu.open('Film', entries, function (index) { openFilm(FILMS[index]); });
  }

  function chooseSound() {
    var entries = trackEntries(AUDIO);
    if (!entries.length) {
      say('There is no sound to choose. Press Play first.');
      return;
    }
    menu.open('Sound', entries, function (index) { video.selectComponent(entries[index].track); });
  }

  function chooseSubtitles() {
    var entries = subtitleEntries();
    if (!entries.length) {
      say('No subtitles here: choose The voyage, and play it.');
      return;
    }
    menu.open('Subtitles', entries, function (index) {
      if (entries[index].track) {
        video.selectComponent(entries[index].track);
      } else {
        video.unselectComponent(SUBTITLE);
      }
    });
  }

  // What the object reports

  function onState(state) {
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
  }

  function onFullScreen() {
    setMode('full', video.fullScreen);
    showModes();
    showControls();
  }

  function listen() {
    video.onPlayStateChange = onState;
    video.onPlaySpeedChanged = showSpeed;
    video.onPlayPositionChanged = showPosition;
    video.onFullScreenChange = onFullScreen;
    video.onSelectedComponentChanged = showChoices;
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
    var next = filmToQueue();
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

  // Focus and keys

  function focusedButton() {
    return element(ROWS[focusedRow][focusedColumn]);
  }

  function setFocusClass(isOn) {
    var button = focusedButton();
    button.className = button.className.replace(/ ?focus/, '') + (isOn ? ' focus' : '');
  }

  function moveFocus(columns, rows) {
    var row = ROWS[focusedRow + rows];
    if (!row) {
      return;
    }
    setFocusClass(false);
    focusedRow += rows;
    focusedColumn = Math.max(0, Math.min(row.length - 1, focusedColumn + columns));
    setFocusClass(true);
  }

  function showControls() {
    setMode('idle', false);
    clearTimeout(hideTimer);
    if (video.fullScreen) {
      hideTimer = setTimeout(function () {
        menu.close();
        setMode('idle', true);
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
    case KEY.left: moveFocus(-1, 0); return true;
    case KEY.right: moveFocus(1, 0); return true;
    case KEY.up: moveFocus(0, -1); return true;
    case KEY.down: moveFocus(0, 1); return true;
    case KEY.enter: actions[focusedButton().id](); return true;
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
  setFocusClass(true);
  showModes();
  showState(STOPPED);
  showClock();
  setInterval(showPosition, 200);
  setInterval(showClock, 1000);
  play(1);
}());
