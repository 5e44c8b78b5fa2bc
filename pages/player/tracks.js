// The tracks of an object as entries of a menu: name, note, and whether the track is active.
var tracks = (function () {
  'use strict';

  var AUDIO = 1, SUBTITLE = 2; // component types

  function trackName(track, number) {
    var name = languageName(track.language) || 'Track ' + (number + 1);
    if (track.audioDescription) {
      name += ' (described)';
    }
    return track.hearingImpaired ? name + ' (SDH)' : name;
  }

  function entriesOf(video, type) {
    var all = video.getComponents(type);
    var active = video.getCurrentActiveComponents(type);
    var entries = [];
    for (var i = 0; all && i < all.length; ++i) {
      var entry = { name: trackName(all[i], i), chosen: false, track: all[i] };
      if (type === AUDIO && all[i].audioChannels) {
        entry.note = ['', 'mono', 'stereo'][all[i].audioChannels] || all[i].audioChannels + ' channels';
      }
      for (var j = 0; active && j < active.length; ++j) {
        entry.chosen = entry.chosen || active[j].pid === all[i].pid;
      }
      entries.push(entry);
    }
    return entries;
  }

  return {
    audio: function (video) {
      return entriesOf(video, AUDIO);
    },

    subtitles: function (video) {
      var all = entriesOf(video, SUBTITLE);
      var isOff = !all.some(function (entry) { return entry.chosen; });
      return all.length ? [{ name: 'Off', chosen: isOff, track: null }].concat(all) : [];
    },

    chosenName: function (entries) {
      var chosen = entries.filter(function (entry) { return entry.chosen; })[0];
      return chosen ? chosen.name : '\u2013';
    },

    select: function (video, entry) {
      if (entry.track) {
        video.selectComponent(entry.track);
      } else {
        video.unselectComponent(SUBTITLE);
      }
    }
  };
}());
