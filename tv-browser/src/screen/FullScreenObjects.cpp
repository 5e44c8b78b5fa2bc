#include "screen/FullScreenObjects.h"

#include "screen/ObjectState.h"

#include <QWebElementCollection>
#include <QWebFrame>
#include <algorithm>
#include <cmath>

namespace tv {

namespace {

/** What is overridden. The origin's two parts: the engine does not remove their common property. */
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

/** @param position the page's own; where that leaves no gap the object is taken out of what cuts it */
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

/** @return where an object would be that the transform from `supposed` to the viewport has brought to `box` */
QRectF beforeTransform(const QRectF& box, const QRectF& supposed, const QSizeF& viewport) {
    return {box.topLeft() + supposed.topLeft(), QSizeF(box.width() * supposed.width() / viewport.width(),
                                                       box.height() * supposed.height() / viewport.height())};
}

} // namespace

FullScreenObjects::FullScreenObjects(QWebFrame& mainFrame) : m_mainFrame(mainFrame) {}

void FullScreenObjects::update() {
    QList<Stretched> stillStretched;
    m_any = false;
    m_anySeen = false;
    m_hiddenPlayers.clear();
    updateFrame(m_mainFrame, stillStretched);
    m_stretched = stillStretched;
}

void FullScreenObjects::updateFrame(QWebFrame& frame, QList<Stretched>& stillStretched) {
    for (QWebElement element : frame.findAllElements(QStringLiteral("object, embed"))) {
        const auto known = std::find_if(m_stretched.begin(), m_stretched.end(),
                                        [&element](const Stretched& entry) { return entry.element == element; });
        const bool isKnown = known != m_stretched.end();
        ObjectState state = objectStateOf(element);
        if (!state.isSeen && state.player >= 0) {
            m_hiddenPlayers.insert(state.player);
        }
        if (state.isFullScreen && !state.box.isEmpty()) {
            m_any = true;
            m_anySeen |= state.isSeen;
            Stretched object{element, {}, {}, state.viewport, {}};
            if (isKnown) {
                object = *known;
                state.box = beforeTransform(state.box, known->place, known->viewport);
            } else if (!isNear(state.box, QRectF(QPointF(), state.viewport))) {
                object.formerStyle = styleOf(element);
                object.position = element.styleProperty(QStringLiteral("position"), QWebElement::ComputedStyle);
                setTransform(element, QStringLiteral("none"), object.position); // The page's own would count twice.
                state = objectStateOf(element);
            } else {
                continue; // It covers its frame by itself.
            }
            if (!isNear(state.box, object.place) || state.viewport != object.viewport) {
                object.place = state.box;
                object.viewport = state.viewport;
                stretch(object);
            }
            stillStretched.append(object);
        } else if (isKnown) {
            setStyle(element, known->formerStyle, QString());
        }
    }
    for (QWebFrame* child : frame.childFrames()) {
        updateFrame(*child, stillStretched);
    }
}

/** Maps the object's place to the viewport. */
void FullScreenObjects::stretch(Stretched& object) {
    const QRectF& place = object.place;
    setTransform(object.element,
                 QStringLiteral("translate(%1px, %2px) scale(%3, %4)")
                     .arg(-place.left())
                     .arg(-place.top())
                     .arg(object.viewport.width() / place.width(), 0, 'g', 12)
                     .arg(object.viewport.height() / place.height(), 0, 'g', 12),
                 object.position);
}

} // namespace tv
