// Objects with subtitles, for pages whose picture is looked at.
'use strict';

document.body.style.cssText = 'margin: 0; background: #333333';

function newSubtitledObject(data, descriptions, place, type) {
  var video = newObject(data, type, descriptions.map(function(description) {
    var parameter = document.createElement('param');
    parameter.name = 'subtitles';
    parameter.value = description;
    return parameter;
  }));
  video.width = 400;
  video.height = 225;
  video.style.cssText = 'position: absolute; left: ' + place[0] + 'px; top: ' + place[1] + 'px';
  video.selections = '';
  video.moves = 0;
  video.onPlayPositionChanged = function() { ++video.moves; };
  video.onSelectedComponentChanged = function(type) { video.selections += type; };
  return video;
}

function tracks(video) {
  return video.getComponents(video.COMPONENT_TYPE_SUBTITLE);
}

function languages(video) {
  return each(tracks(video), 'language').join(' ');
}

function active(video) {
  return each(video.getCurrentActiveComponents(video.COMPONENT_TYPE_SUBTITLE), 'language').join(' ');
}

// The format of a file is known as soon as the file is there. What comes after these is not looked at.
function isRead(video, encodings) {
  return each(tracks(video), 'encoding').join(' ').indexOf(encodings) === 0;
}

function select(video, index) {
  video.selectComponent(tracks(video)[index]);
}

// A step that holds objects.
function pause(videos) {
  return function(done) {
    videos.forEach(function(video) { video.play(0); });
    until('all pause', function() {
      return videos.every(function(video) { return video.playState === 2; });
    })(done);
  };
}

// A step that starts objects and holds them as soon as they play.
function playAndPause(videos) {
  return function(done) {
    videos.forEach(function(video) { video.play(1); });
    var allPlay = until('all play', function() {
      return videos.every(function(video) { return video.states.indexOf(1) >= 0; });
    });
    runSteps([allPlay, pause(videos)], done);
  };
}

// A step that brings objects to a position and ends when their pictures of it are there.
function seek(videos, position) {
  return function(done) {
    var moves = videos.map(function(video) {
      var before = video.moves;
      video.seek(position);
      return before;
    });
    until('all have moved to ' + position, function() {
      return videos.every(function(video, i) { return video.moves > moves[i]; });
    })(done);
  };
}
