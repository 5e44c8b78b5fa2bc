// The media of the page, and which of them an object plays.
var media = (function () {
  'use strict';

  var LIST = [
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
    { url: 'media/audio.mp3', type: 'audio/mpeg', title: 'Melody', form: 'MP3', audioOnly: true }
  ];

  function playedBy(video) {
    var address = String(video.data);
    return LIST.filter(function (item) { return address.indexOf(item.url) >= 0; })[0] || LIST[0];
  }

  return {
    list: LIST,
    playedBy: playedBy,

    // What the queue button adds. Queued media play in the same object, whose type is video/mp4.
    toQueueAfter: function (video) {
      return playedBy(video) === LIST[0] ? LIST[1] : LIST[0];
    }
  };
}());
