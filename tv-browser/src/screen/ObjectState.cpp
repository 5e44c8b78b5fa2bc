#include "screen/ObjectState.h"

#include "base/ScreenSize.h"
#include "timeline/TraceSuppression.h"

#include <QVariant>
#include <QWebElement>

namespace tv {

namespace {

// A page may write fullScreen, which leaves the player's window as it is; only setFullScreen() also sets the size.
const QString script = QStringLiteral(R"js((function(object) {
  function isVisible(element) {
    if (getComputedStyle(element).visibility !== 'visible') {
      return false;
    }
    for (var node = element; node; node = node.parentElement) {
      if (Number(getComputedStyle(node).opacity) === 0) {
        return false;
      }
    }
    var frame = element.ownerDocument.defaultView.frameElement;
    return !frame || isVisible(frame);
  }
  var box = object.getBoundingClientRect();
  return [typeof object.getMediaHandle === 'function' ? object.getMediaHandle() : -1,
          object.fullScreen === true && object.width == %1 && object.height == %2, isVisible(object),
          box.left, box.top, box.width, box.height, innerWidth, innerHeight];
})(this))js")
                           .arg(tvScreenSize.width())
                           .arg(tvScreenSize.height());

} // namespace

ObjectState objectStateOf(QWebElement element) {
    const TraceSuppression suppression;
    const QVariantList values = element.evaluateJavaScript(script).toList();
    if (values.size() != 9) {
        return {};
    }
    return {values[0].toInt(), values[1].toBool(), values[2].toBool(),
            QRectF(values[3].toDouble(), values[4].toDouble(), values[5].toDouble(), values[6].toDouble()),
            QSizeF(values[7].toDouble(), values[8].toDouble())};
}

} // namespace tv
