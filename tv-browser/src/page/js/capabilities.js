// application/oipfCapabilities (OIPF DAE 7.15.3) of a terminal without tuner and content protection.
(function(objects) {
  var uiProfile = 'OITF_HD_UIPROF';
  var options = ['+TRICKMODE'];

  var capabilities =
      '<profilelist>' +
      '<ui_profile name="' + uiProfile + options.join('') + '">' +
      '<ext><colorkeys>true</colorkeys></ext>' +
      '</ui_profile>' +
      '<audio_profile name="MPEG1_L3" type="audio/mpeg"/>' +
      '<audio_profile name="HEAAC" type="audio/mp4"/>' +
      '<video_profile name="MP4_AVC_SD_25_HEAAC" type="video/mp4"/>' +
      '<video_profile name="MP4_AVC_HD_25_HEAAC" type="video/mp4"/>' +
      '<video_profile name="MP4_AVC_SD_25_HEAAC" type="video/mp4" transport="dash"/>' +
      '<video_profile name="MP4_AVC_HD_25_HEAAC" type="video/mp4" transport="dash"/>' +
      '</profilelist>';

  objects.define('application/oipfcapabilities', function() {
    var parsed = null;
    return {
      get xmlCapabilities() {
        parsed = parsed || new DOMParser().parseFromString(capabilities, 'text/xml');
        return parsed;
      },
      extraSDVideoDecodes: 1,
      extraHDVideoDecodes: 1,
      extraUHDVideoDecodes: 0,
      hasCapability: function(name) { return name === uiProfile || options.indexOf(String(name)) >= 0; }
    };
  });
})
