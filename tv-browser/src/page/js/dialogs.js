// Dialogs do not interrupt scripts here, so a script could open them for ever: one that opens too many is stopped.
(function() {
  var MOST_IN_ONE_TURN = 100;
  var opened = 0;
  var setTimeout = window.setTimeout;

  ['alert', 'confirm', 'prompt'].forEach(function(name) {
    var original = window[name];
    window[name] = function() {
      if (opened === 0) {
        setTimeout(function() { opened = 0; }, 0);
      }
      if (++opened > MOST_IN_ONE_TURN) {
        throw new Error('the script was stopped: it opened ' + MOST_IN_ONE_TURN + ' dialogs without a pause');
      }
      return original.apply(window, arguments);
    };
  });
})
