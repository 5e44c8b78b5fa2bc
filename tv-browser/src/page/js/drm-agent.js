// application/oipfDrmAgent (OIPF DAE 7.6) of a receiver without content protection.
(function(objects) {
  var UNKNOWN_SYSTEM = 5;
  var messages = 0;

  objects.define('application/oipfdrmagent', function(element) {
    var model = {
      onDRMMessageResult: null,
      onDRMSystemStatusChange: null,
      onDRMSystemMessage: null,
      sendDRMMessage: function() {
        var id = String(++messages);
        objects.raise(element, model, 'DRMMessageResult', ['msgID', 'resultMsg', 'resultCode'],
                      [id, '', UNKNOWN_SYSTEM]);
        return id;
      },
      canPlayContent: function() { return false; },
      canRecordContent: function() { return false; },
      setActiveDRM: function() { return false; },
      DRMSystemStatus: function() { return 1; }
    };
    return model;
  });
})
