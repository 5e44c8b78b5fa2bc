// application/oipfConfiguration (OIPF DAE 7.3, with the additions of HbbTV).
(function(objects) {
  var terminal = objects.terminal();
  var texts = {};

  var configuration = {
    preferredAudioLanguage: 'eng',
    preferredSubtitleLanguage: 'eng',
    preferredUILanguage: 'eng',
    countryId: 'GBR',
    regionId: 0,
    subtitlesEnabled: false,
    audioDescriptionEnabled: false,
    timeShiftSynchronized: false,
    dtt_network_ids: [],
    deviceId: '',
    getText: function(key) { return texts.hasOwnProperty(key) ? texts[key] : null; },
    setText: function(key, value) { texts[key] = String(value); }
  };

  var localSystem = {
    deviceID: '',
    systemReady: true,
    vendorName: terminal.vendorName,
    modelName: terminal.modelName,
    familyName: terminal.familyName,
    softwareVersion: terminal.softwareVersion,
    hardwareVersion: terminal.hardwareVersion,
    serialNumber: '',
    releaseVersion: 1,
    majorVersion: 1,
    minorVersion: 0,
    oipfProfile: 'OITF_HD_UIPROF',
    pvrEnabled: false,
    ciplusEnabled: false,
    powerState: 1,
    volume: 100,
    mute: false,
    networkInterfaces: objects.emptyCollection(),
    tuners: objects.emptyCollection(),
    outputs: objects.emptyCollection()
  };

  objects.define('application/oipfconfiguration', function() {
    return {
      configuration: configuration,
      localSystem: localSystem,
      onIpAddressChange: null,
      onPowerStateChange: null
    };
  });
})
