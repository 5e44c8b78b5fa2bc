// What each of these applications begins with, as the templates of broadcasters do: it shows itself, asks for its keys,
// and handles them.
'use strict';

function startApplication(onKey) {
  var manager = document.createElement('object');
  manager.setAttribute('type', 'application/oipfApplicationManager');
  document.body.appendChild(manager);
  var application = manager.getOwnerApplication(document);
  application.show();
  var keyset = application.privateData.keyset;
  keyset.setValue(keyset.NAVIGATION | keyset.VCR | keyset.RED);
  document.addEventListener('keydown', function(event) {
    if (onKey(event.keyCode)) {
      event.preventDefault();
    }
  }, false);
}
