#include "page/EmbeddedObjects.h"

#include "AVControlElement.h"
#include "base/ScreenSize.h"
#include "page/OwnerApplication.h"
#include "remote/Keyset.h"

#include <QFile>
#include <QUrl>
#include <QWebFrame>

namespace tv {

namespace {

QByteArray resource(const char* name) {
    QFile file(QStringLiteral(":/js/") + QLatin1String(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

#define LIST_PROPERTY(name) "'" name "',"
#define LIST_LISTENER(type, property) "'" type "',"
constexpr char keptProperties[] = AVCONTROL_KEPT_PROPERTIES(LIST_PROPERTY);
constexpr char keptListeners[] = AVCONTROL_KEPT_LISTENERS(LIST_LISTENER);
#undef LIST_PROPERTY
#undef LIST_LISTENER

/** @return what the scripts know of the plug-in's module: the names under which an element keeps what a page sets */
QByteArray elementNames() {
    return QByteArray("keptProperty: '" AVCONTROL_ELEMENT_PROPERTY "', keptListener: '" AVCONTROL_ELEMENT_LISTENER "',"
                      " keptProperties: [") +
           keptProperties + "], keptListeners: [" + keptListeners + "]";
}

/** @return what the scripts share with this program: an object literal */
QByteArray sharedConstants() {
    QByteArray constants;
    for (const KeysetConstant& constant : keysetConstants) {
        constants += QByteArray(constant.name) + ": " + QByteArray::number(constant.value) + ", ";
    }
    return "{screenSize: {width: " + QByteArray::number(tvScreenSize.width()) +
           ", height: " + QByteArray::number(tvScreenSize.height()) + "}, keysetConstants: {" + constants + "}, " +
           elementNames() + "}";
}

/** Each file is a function, whose arguments are an object that the files share, and the application. */
QString composeScript() {
    QByteArray script = "(function(television) { delete window.television; var objects = " + sharedConstants() + ";\n";
    for (const char* name :
         {"embedded-objects.js", "console.js", "application-manager.js", "configuration.js", "capabilities.js",
          "drm-agent.js", "broadcast.js", "media-object.js", "object-factory.js", "dialogs.js"}) {
        script += '(' + resource(name) + ")(objects, television);\n";
    }
    return QString::fromUtf8(script + "})(window.television);");
}

} // namespace

void installEmbeddedObjects(QWebFrame& frame, OwnerApplication& application) {
    static const QString script = composeScript();
    frame.addToJavaScriptWindowObject(QStringLiteral("television"), &application);
    frame.evaluateJavaScript(script);
}

QUrl embeddedObjectsStyleSheet() {
    // The engine accepts only this form of a data address.
    return QUrl(QStringLiteral("data:text/css;charset=utf-8;base64,") +
                QString::fromLatin1(resource("embedded-objects.css").toBase64()));
}

} // namespace tv
