#include "screen/ObjectState.h"

#include "timeline/TraceSuppression.h"

#include <QVariant>
#include <QWebElement>

namespace tv {

namespace {

// Written by a page, fullScreen alone leaves the player's window as it is; the width and height tell.
const QString script = QStringLiteral(R"js((function(object) {
  function isSeen(element) {
    if (getComputedStyle(element).visibility !== 'visible') {
      return false;
    }
    for (var part = element; part; part = part.parentElement) {
      if (Number(getComputedStyle(part).opacity) === 0) {
        return false;
      }
    }
    var frame = element.ownerDocument.defaultView.frameElement;
    return !frame || isSeen(frame);
  }
  var box = object.getBoundingClientRect();
  return [typeof object.getMediaHandle === 'function' ? object.getMediaHandle() : -1,
          object.fullScreen === true && object.width == 1280 && object.height == 720, isSeen(object),
          box.left, box.top, box.width, box.height, innerWidth, innerHeight];
})(this))js");

} // namespace

ObjectState objectStateOf(QWebElement element) {
    const TraceSuppression unobserved;
    const QVariantList values = element.evaluateJavaScript(script).toList();
    if (values.size() != 9) {
        return {};
    }
    return {values[0].toInt(), values[1].toBool(), values[2].toBool(),
            QRectF(values[3].toDouble(), values[4].toDouble(), values[5].toDouble(), values[6].toDouble()),
            QSizeF(values[7].toDouble(), values[8].toDouble())};
}

} // namespace tv
