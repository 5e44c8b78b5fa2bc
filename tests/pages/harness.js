// What the page tests share. A page says its verdict in its title: "PASS", or "FAIL" and why.
'use strict';

var FILM = 'media/film.mp4'; // 30 s
var SECOND = 'media/second.mp4'; // 12 s
var SHORT = 'media/short.mp4'; // 3 s

function fail(why) {
  if (document.title.indexOf('FAIL') !== 0) {
    document.title = 'FAIL: ' + why;
  }
}

function pass() {
  if (document.title.indexOf('FAIL') !== 0) {
    document.title = 'PASS';
  }
}

window.onerror = function(message, file, line) {
  fail(message + ' (line ' + line + ')');
};

function expect(actual, wanted, what) {
  if (actual !== wanted) {
    fail(what + ' is ' + actual + ', wanted ' + wanted);
  }
}

function expectNear(actual, wanted, tolerance, what) {
  if (!(Math.abs(actual - wanted) <= tolerance)) {
    fail(what + ' is ' + actual + ', wanted ' + wanted + ' +- ' + tolerance);
  }
}

// An object in the page, with these children, and with the play states that its handler received in `states`.
function newObject(data, type, children) {
  var video = document.createElement('object');
  video.type = type || 'video/mp4';
  video.width = 320;
  video.height = 180;
  (children || []).forEach(function(child) { video.appendChild(child); });
  if (data) {
    video.data = data;
  }
  document.body.appendChild(video);
  video.states = [];
  video.onPlayStateChange = function(state) {
    video.states.push(state);
  };
  return video;
}

// A property of each of some components.
function each(components, property) {
  return [].map.call(components, function(component) { return component[property]; });
}

// Runs steps one after the other. Each gets the function that it calls when it is done.
function runSteps(steps, done) {
  var next = function() {
    var step = steps.shift();
    if (step) {
      step(next);
    } else {
      done();
    }
  };
  next();
}

function run(steps) {
  runSteps(steps, pass);
}

// A step that waits until a condition holds, at most 20 seconds or as many as said. With `video`, a failure names the
// states it received.
function until(what, condition, video, seconds) {
  return function(done) {
    var tries = 0;
    var timer = setInterval(function() {
      if (condition()) {
        clearInterval(timer);
        done();
      } else if (++tries > (seconds || 20) * 50) {
        clearInterval(timer);
        fail('waited in vain until ' + what + (video ? '; it was told ' + video.states.join(' ') : ''));
      }
    }, 20);
  };
}

function state(video, wanted) {
  return until('the state is ' + wanted, function() { return video.playState === wanted; }, video);
}

function told(video, wanted) {
  return until('the object is told ' + wanted, function() { return video.states.join(' ') === wanted; }, video);
}

function wait(milliseconds) {
  return function(done) {
    setTimeout(done, milliseconds);
  };
}

// A step that does something at once.
function now(action) {
  return function(done) {
    action();
    done();
  };
}
