// Names of languages, for the ISO 639-2 codes of the media's tracks.
var languageName = (function () {
  'use strict';

  var NAMES = {
    cat: 'Catal\u00e0', ces: '\u010ce\u0161tina', cym: 'Cymraeg', dan: 'Dansk', deu: 'Deutsch',
    ell: '\u0395\u03bb\u03bb\u03b7\u03bd\u03b9\u03ba\u03ac', eng: 'English', est: 'Eesti', eus: 'Euskara',
    fin: 'Suomi', fra: 'Fran\u00e7ais', gle: 'Gaeilge', hrv: 'Hrvatski', hun: 'Magyar', isl: '\u00cdslenska',
    ita: 'Italiano', lav: 'Latvie\u0161u', lit: 'Lietuvi\u0173', nld: 'Nederlands', nor: 'Norsk', pol: 'Polski',
    por: 'Portugu\u00eas', ron: 'Rom\u00e2n\u0103', slk: 'Sloven\u010dina', slv: 'Sloven\u0161\u010dina',
    spa: 'Espa\u00f1ol', swe: 'Svenska', tur: 'T\u00fcrk\u00e7e',
    ukr: '\u0423\u043a\u0440\u0430\u0457\u043d\u0441\u044c\u043a\u0430'
  };
  var BIBLIOGRAPHIC = {
    baq: 'eus', cze: 'ces', dut: 'nld', fre: 'fra', ger: 'deu', gre: 'ell', ice: 'isl', rum: 'ron',
    slo: 'slk', wel: 'cym'
  };

  // The name in the language itself; else the code; "" for a track without a language.
  return function (code) {
    var language = BIBLIOGRAPHIC[code] || code;
    return NAMES[language] || (language === 'und' ? '' : language);
  };
}());
