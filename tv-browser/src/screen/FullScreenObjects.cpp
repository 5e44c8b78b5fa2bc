#include "screen/FullScreenObjects.h"

#include "screen/ObjectState.h"

#include <QWebElementCollection>
#include <QWebFrame>
#include <algorithm>
#include <cmath>

namespace tv {

namespace {

/** What is overridden. The origin has two entries because the engine does not remove their common property. */
const QStringList styleProperties = {QStringLiteral("-webkit-transform"), QStringLiteral("-webkit-transform-origin-x"),
                                     QStringLiteral("-webkit-transform-origin-y"), QStringLiteral("position")};

constexpr double pixelTolerance = 0.5;

QStringList styleOf(const QWebElement& element) {
    QStringList values;
    for (const QString& property : styleProperties) {
        values.append(element.styleProperty(property, QWebElement::InlineStyle));
    }
    return values;
}

void setStyle(QWebElement& element, const QStringList& values, const QString& priority) {
    for (int i = 0; i < styleProperties.size(); ++i) {
        element.setStyleProperty(styleProperties[i], QString()); // A plain value does not replace an important one.
        if (!values[i].isEmpty()) {
            element.setStyleProperty(styleProperties[i], values[i] + priority);
        }
    }
}

/** @param position the page's own; out of the flow already, the object becomes fixed, so that no parent clips it */
void setTransform(QWebElement& element, const QString& transform, const QString& position) {
    const bool isOutOfFlow = position == QLatin1String("absolute") || position == QLatin1String("fixed");
    setStyle(element,
             {transform, QStringLiteral("0"), QStringLiteral("0"), isOutOfFlow ? QStringLiteral("fixed") : position},
             QStringLiteral(" !important"));
}

bool isNear(const QRectF& a, const QRectF& b) {
    return std::abs(a.left() - b.left()) < pixelTolerance && std::abs(a.top() - b.top()) < pixelTolerance &&
           std::abs(a.width() - b.width()) < pixelTolerance && std::abs(a.height() - b.height()) < pixelTolerance;
}

/** @return where an object would be without the transform that maps `assumed` to the viewport and yields `box` */
QRectF boxInLayout(const QRectF& box, const QRectF& assumed, const QSizeF& viewport) {
    return {box.topLeft() + assumed.topLeft(), QSizeF(box.width() * assumed.width() / viewport.width(),
                                                      box.height() * assumed.height() / viewport.height())};
}

} // namespace

FullScreenObjects::FullScreenObjects(QWebFrame& mainFrame) : m_mainFrame(mainFrame) {}

void FullScreenObjects::update() {
    QList<Stretched> stillStretched;
    m_isAny = false;
    m_isAnyVisible = false;
    m_hiddenPlayers.clear();
    updateFrame(m_mainFrame, stillStretched);
    m_stretched = stillStretched;
}

void FullScreenObjects::updateFrame(QWebFrame& frame, QList<Stretched>& stillStretched) {
    for (const QWebElement& element : frame.findAllElements(QStringLiteral("object, embed"))) {
        updateElement(element, stillStretched);
    }
    for (QWebFrame* child : frame.childFrames()) {
        updateFrame(*child, stillStretched);
    }
}

void FullScreenObjects::updateElement(const QWebElement& element, QList<Stretched>& stillStretched) {
    const auto known = std::find_if(m_stretched.begin(), m_stretched.end(),
                                    [&element](const Stretched& entry) { return entry.element == element; });
    const bool isKnown = known != m_stretched.end();
    const ObjectState state = objectStateOf(element);
    if (!state.isVisible && state.player >= 0) {
        m_hiddenPlayers.insert(state.player);
    }
    if (!state.isFullScreen || state.box.isEmpty()) {
        if (isKnown) {
            setStyle(known->element, known->formerStyle, QString());
        }
        return;
    }
    m_isAny = true;
    m_isAnyVisible |= state.isVisible;
    if (isKnown) {
        fit(*known, boxInLayout(state.box, known->box, known->viewport), state.viewport);
        stillStretched.append(*known);
    } else if (!isNear(state.box, QRectF(QPointF(), state.viewport))) { // else it covers its frame by itself
        stillStretched.append(stretch(element, state.viewport));
    }
}

FullScreenObjects::Stretched FullScreenObjects::stretch(QWebElement element, const QSizeF& viewport) {
    Stretched object{element, styleOf(element),
                     element.styleProperty(QStringLiteral("position"), QWebElement::ComputedStyle), QRectF(), viewport};
    // The page's own transform would count twice: the object is measured without it.
    setTransform(element, QStringLiteral("none"), object.position);
    const ObjectState plain = objectStateOf(element);
    fit(object, plain.box, plain.viewport);
    return object;
}

/** Maps the object's box in the layout to the viewport, unless the transform in force does so already. */
void FullScreenObjects::fit(Stretched& object, const QRectF& box, const QSizeF& viewport) {
    if (isNear(box, object.box) && viewport == object.viewport) {
        return;
    }
    object.box = box;
    object.viewport = viewport;
    setTransform(object.element,
                 QStringLiteral("translate(%1px, %2px) scale(%3, %4)")
                     .arg(-box.left())
                     .arg(-box.top())
                     .arg(viewport.width() / box.width(), 0, 'g', 12)
                     .arg(viewport.height() / box.height(), 0, 'g', 12),
                 object.position);
}

} // namespace tv
