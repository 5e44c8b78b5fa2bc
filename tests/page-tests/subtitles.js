// Objects with subtitles, for pages whose picture is looked at.
'use strict';

document.body.style.cssText = 'margin: 0; background: #333333';

function newSubtitledObject(data, descriptions, place, type) {
  var video = document.createElement('object');
  video.type = type || 'video/mp4';
  video.width = 400;
  video.height = 225;
  video.style.cssText = 'position: absolute; left: ' + place[0] + 'px; top: ' + place[1] + 'px';
  descriptions.forEach(function(description) {
    var parameter = document.createElement('param');
    parameter.name = 'subtitles';
    parameter.value = description;
    video.appendChild(parameter);
  });
  video.data = data;
  document.body.appendChild(video);
  video.states = [];
  video.selections = '';
  video.moves = 0;
  video.onPlayStateChange = function(state) { video.states.push(state); };
  video.onPlayPositionChanged = function() { ++video.moves; };
  video.onSelectedComponentChanged = function(type) { video.selections += type; };
  return video;
}

function tracks(video) {
  return video.getComponents(video.COMPONENT_TYPE_SUBTITLE);
}

function join(collection, property) {
  var names = [];
  for (var i = 0; i < collection.length; ++i) {
    names.push(collection[i][property]);
  }
  return names.join(' ');
}

function languages(video) {
  return join(tracks(video), 'language');
}

function active(video) {
  return join(video.getCurrentActiveComponents(video.COMPONENT_TYPE_SUBTITLE), 'language');
}

// The format of a file is told as soon as the file is there. What comes after these is not looked at.
function isRead(video, encodings) {
  return join(tracks(video), 'encoding').indexOf(encodings) === 0;
}

function select(video, index) {
  video.selectComponent(tracks(video)[index]);
}

// A step that starts objects and holds them as soon as they play.
function playAndPause(videos) {
  return function(done) {
    videos.forEach(function(video) { video.play(1); });
    until('all play', function() {
      return videos.every(function(video) { return video.states.indexOf(1) >= 0; });
    })(function() {
      videos.forEach(function(video) { video.play(0); });
      until('all pause', function() {
        return videos.every(function(video) { return video.playState === 2; });
      })(done);
    });
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
