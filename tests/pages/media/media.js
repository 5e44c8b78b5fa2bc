// What the pages about media share: they look at the picture that the television shows.
'use strict';

var TEST = 'http://' + location.host + '/test/';
var FRAME = 40; // ms
var LENGTH = 10000;

function spot(video) {
  var box = video.getBoundingClientRect();
  var points = [];
  for (var column = 0; column < 16; ++column) {
    [1 / 12, 3 / 12].forEach(function(row) {
      points.push(box.left + box.width * (column + 0.5) / 16, box.top + box.height * row);
    });
  }
  var brightness = televisionScreen.brightness(points);
  var value = 0;
  for (var i = 0; i < 16; ++i) {
    var upper = brightness[2 * i];
    var lower = brightness[2 * i + 1];
    if (Math.abs(upper - lower) < 60) {
      return null;
    }
    value = value * 2 + (upper > lower ? 1 : 0);
  }
  return {frame: value >> 4, picture: value & 15};
}

// Time of the picture on the screen, in milliseconds; NaN without one.
function shown(video) {
  var seen = spot(video);
  return seen ? seen.frame * FRAME : NaN;
}

function near(actual, wanted, tolerance) {
  return Math.abs(actual - wanted) <= tolerance;
}

// The one of some components that has a language.
function inLanguage(components, language) {
  return [].filter.call(components, function(component) { return component.language === language; })[0];
}

// A step that waits until the picture of a moment is on the screen.
function shows(video, ms, tolerance) {
  return until('the picture of ' + ms + ' is there', function() { return near(shown(video), ms, tolerance); }, video);
}

// A step that waits until picture and position agree, as the medium's time goes on.
function agrees(video) {
  return until('position and picture agree', function() { return near(video.playPosition, shown(video), 100); }, video);
}

function remove(video) {
  return now(function() { document.body.removeChild(video); });
}

// Plays, pauses, seeks and ends as a film of ten seconds does. `tolerance` of a seek, in milliseconds.
function filmSteps(file, tolerance) {
  var video = newObject(TEST + file, file.indexOf('mpd') > 0 ? 'application/dash+xml'
                                     : file.indexOf('m3u8') > 0 ? 'application/vnd.apple.mpegurl' : 'video/mp4');
  var firstTime = 0;
  video.onPlayStateChange = function(state) {
    video.states.push(state);
    if (state === 1 && !firstTime) {
      firstTime = video.playTime;
    }
  };
  return [
    now(function() { video.play(1); }),
    state(video, 1),
    now(function() { expectNear(firstTime, LENGTH, 100, file + ': playTime in the first state 1'); }),
    until(file + ' goes on', function() { return video.playPosition > 500; }, video),
    agrees(video),
    now(function() { video.play(0); }),
    state(video, 2),
    until(file + ': the paused picture is that of the position',
          function() { return near(shown(video), video.playPosition, 250); }, video),
    now(function() { expect(video.seek(5000), true, file + ': seek while paused'); }),
    shows(video, 5000, FRAME + tolerance),
    now(function() {
      expect(video.playState, 2, file + ': state after seek while paused');
      video.play(1);
    }),
    state(video, 1),
    until(file + ' goes on from there', function() { return video.playPosition > 5300; }, video),
    now(function() {
      expect(video.seek(LENGTH + 5000), false, file + ': seek beyond the end');
      expect(video.seek(8800), true, file + ': seek');
    }),
    state(video, 5),
    shows(video, LENGTH - FRAME, FRAME),
    now(function() { video.play(1); }),
    state(video, 1),
    until(file + ' plays again', function() { return near(video.playPosition, 1000, 700); }, video),
    remove(video)
  ];
}

function runFilms(files, tolerance) {
  var steps = [];
  files.forEach(function(file) {
    // Each object is made when its turn comes.
    steps.push(function(done) {
      runSteps(filmSteps(file, tolerance), done);
    });
  });
  run(steps);
}
