// video/broadcast (OIPF DAE 7.13) of a receiver without a tuner: it always returns to its first state.
(function(objects) {
  var UNREALIZED = 0;
  var CONNECTING = 1;
  var UNSUPPORTED_CHANNEL = 0;
  var NO_SIGNAL = 1;
  var NO_CHANNEL_LIST = 10;

  var channelTypes = {
    TYPE_TV: 0,
    TYPE_RADIO: 1,
    TYPE_OTHER: 2,
    ID_ANALOG: 0,
    ID_DVB_C: 10,
    ID_DVB_S: 11,
    ID_DVB_T: 12,
    ID_DVB_SI_DIRECT: 13,
    ID_DVB_C2: 14,
    ID_DVB_S2: 15,
    ID_DVB_T2: 16,
    ID_ISDB_C: 20,
    ID_ISDB_S: 21,
    ID_ISDB_T: 22,
    ID_ATSC_T: 30,
    ID_IPTV_SDS: 40,
    ID_IPTV_URI: 41
  };

  function newChannel(idType, properties) {
    var channel = {idType: idType, channelType: channelTypes.TYPE_TV, name: '', ccid: 'ccid:created'};
    Object.keys(channelTypes).forEach(function(name) { channel[name] = channelTypes[name]; });
    Object.keys(properties).forEach(function(name) { channel[name] = properties[name]; });
    return channel;
  }

  function newChannelConfig() {
    var config = {
      channelList: objects.emptyCollection(['getChannel', 'getChannelByTriplet', 'getChannelBySourceID']),
      favouriteLists: objects.emptyCollection(['getFavouriteList']),
      currentFavouriteList: null,
      currentChannel: null,
      onChannelListUpdate: null
    };
    Object.keys(channelTypes).forEach(function(name) { config[name] = channelTypes[name]; });
    return config;
  }

  // The handlers of the page, and the members that do nothing on a receiver without a tuner.
  function newInertMembers() {
    return {
      programmes: objects.emptyCollection(),
      COMPONENT_TYPE_VIDEO: 0,
      COMPONENT_TYPE_AUDIO: 1,
      COMPONENT_TYPE_SUBTITLE: 2,
      onPlayStateChange: null,
      onChannelChangeError: null,
      onChannelChangeSucceeded: null,
      onFullScreenChange: null,
      onProgrammesChanged: null,
      onParentalRatingChange: null,
      onParentalRatingError: null,
      onDRMRightsError: null,
      onSelectedComponentChanged: null,
      onComponentChanged: null,
      stop: function() {},
      addStreamEventListener: function() {},
      removeStreamEventListener: function() {},
      getComponents: function() { return objects.emptyCollection(); },
      getCurrentActiveComponents: function() { return objects.emptyCollection(); },
      selectComponent: function() {},
      unselectComponent: function() {}
    };
  }

  // A member that script can read only: writing it changes nothing.
  function defineReadOnly(model, name, read) {
    Object.defineProperty(model, name, {configurable: true, enumerable: true, get: read, set: function() {}});
  }

  function addChannels(model, element) {
    var state = UNREALIZED;
    var channelConfig = null;

    function reportState(newState, error) {
      state = newState;
      objects.raise(element, model, 'PlayStateChange', ['state', 'error'], [newState, error]);
    }

    function reportChannelError(channel, error) {
      objects.raise(element, model, 'ChannelChangeError', ['channel', 'errorState'], [channel, error]);
    }

    defineReadOnly(model, 'playState', function() { return state; });
    defineReadOnly(model, 'currentChannel', function() { return null; });
    model.bindToCurrentChannel = function() {
      reportState(UNREALIZED, NO_SIGNAL);
      return null;
    };
    model.setChannel = function(channel) {
      if (!channel) {
        model.release();
        objects.raise(element, model, 'ChannelChangeSucceeded', ['channel'], [null]);
        return;
      }
      reportState(CONNECTING);
      reportChannelError(channel, UNSUPPORTED_CHANNEL);
      setTimeout(function() {
        if (state === CONNECTING) {
          reportState(UNREALIZED, UNSUPPORTED_CHANNEL);
        }
      }, 0);
    };
    model.nextChannel = function() { reportChannelError(null, NO_CHANNEL_LIST); };
    model.prevChannel = function() { reportChannelError(null, NO_CHANNEL_LIST); };
    model.release = function() {
      if (state !== UNREALIZED) {
        reportState(UNREALIZED);
      }
    };
    model.getChannelConfig = function() {
      channelConfig = channelConfig || newChannelConfig();
      return channelConfig;
    };
    model.createChannelObject = function(idType, first, second, third) {
      if (idType === channelTypes.ID_DVB_SI_DIRECT) {
        return newChannel(idType, {dsd: first, sid: second});
      }
      return newChannel(idType, {onid: first, tsid: second, sid: third});
    };
  }

  function addPresentation(model, element) {
    var fullScreen = false;
    var volume = 100;

    defineReadOnly(model, 'fullScreen', function() { return fullScreen; });
    model.setFullScreen = function(on) {
      if (fullScreen !== Boolean(on)) {
        fullScreen = Boolean(on);
        objects.raise(element, model, 'FullScreenChange', [], []);
      }
    };
    model.setVolume = function(value) {
      var valid = value >= 0 && value <= 100;
      volume = valid ? Number(value) : volume;
      return valid;
    };
    model.getVolume = function() { return volume; };
  }

  objects.define('video/broadcast', function(element) {
    var model = newInertMembers();
    addChannels(model, element);
    addPresentation(model, element);
    return model;
  });
})
