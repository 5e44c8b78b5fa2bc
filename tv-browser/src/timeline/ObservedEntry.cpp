#include "timeline/ObservedEntry.h"

#include <QRegularExpression>

namespace tv {

namespace {

using Kind = TimelineEntry::Kind;

Kind kindOf(HbbTVPluginTraceKind kind) {
    switch (kind) {
    case HBBTV_TRACE_CREATED:
        return Kind::CREATED;
    case HBBTV_TRACE_DESTROYED:
        return Kind::GONE;
    case HBBTV_TRACE_PARAM:
        return Kind::PARAM;
    case HBBTV_TRACE_CALL:
        return Kind::CALL;
    case HBBTV_TRACE_READ:
        return Kind::READ;
    case HBBTV_TRACE_WRITE:
        return Kind::WRITE;
    case HBBTV_TRACE_STATE:
        return Kind::STATE;
    case HBBTV_TRACE_EVENT:
        return Kind::EVENT;
    case HBBTV_TRACE_ERROR:
        return Kind::SCRIPT_ERROR;
    }
    return Kind::NOTE;
}

Kind kindOf(MediaTraceKind kind) {
    switch (kind) {
    case MEDIA_TRACE_COMMAND:
        return Kind::COMMAND;
    case MEDIA_TRACE_REPORT:
        return Kind::REPORT;
    case MEDIA_TRACE_REQUEST:
        return Kind::REQUEST;
    case MEDIA_TRACE_BUFFERING:
        return Kind::BUFFER;
    case MEDIA_TRACE_NOTE:
        return Kind::NOTE;
    }
    return Kind::NOTE;
}

/** Of "play(1)": the name "play" and the arguments "1". */
void splitCall(const QString& text, QJsonObject& fields) {
    const int bracket = text.indexOf(QLatin1Char('('));
    fields[QStringLiteral("name")] = text.left(bracket);
    fields[QStringLiteral("arguments")] =
        bracket < 0 ? QString()
                    : text.mid(bracket + 1, text.size() - bracket - (text.endsWith(QLatin1Char(')')) ? 2 : 1));
}

/** Of "ERROR 5 (HTTP 404)": the name, the code, and the detail. */
void splitReport(const QString& text, QJsonObject& fields) {
    static const QRegularExpression form(QStringLiteral(R"(^(\w+)(?: (-?\d+))?(?: \((.*)\))?$)"));
    const QRegularExpressionMatch match = form.match(text);
    fields[QStringLiteral("name")] = match.captured(1);
    if (!match.captured(2).isEmpty()) {
        fields[QStringLiteral("code")] = match.captured(2).toInt();
    }
    if (!match.captured(3).isEmpty()) {
        fields[QStringLiteral("detail")] = match.captured(3);
    }
}

/** Of "GET http://... -> http://... bytes=0-": the address, where the server sent the request, and the range. */
void splitRequest(const QString& text, QJsonObject& fields) {
    static const QRegularExpression form(QStringLiteral(R"(^GET (\S*)(?: -> (\S+))?(?: (bytes=\S+))?$)"));
    const QRegularExpressionMatch match = form.match(text);
    fields[QStringLiteral("url")] = match.captured(1);
    if (!match.captured(2).isEmpty()) {
        fields[QStringLiteral("redirect")] = match.captured(2);
    }
    if (!match.captured(3).isEmpty()) {
        fields[QStringLiteral("range")] = match.captured(3);
    }
}

} // namespace

TimelineEntry observedEntry(const HbbTVPluginTraceEntry& observed) {
    TimelineEntry entry;
    entry.kind = kindOf(observed.kind);
    entry.timeUs = observed.timeUs;
    entry.object = observed.instance;
    entry.text = QString::fromUtf8(observed.text);
    const QString value = QString::fromUtf8(observed.value);
    switch (entry.kind) {
    case Kind::CREATED:
        entry.fields[QStringLiteral("type")] = entry.text;
        break;
    case Kind::PARAM:
    case Kind::READ:
    case Kind::WRITE:
        entry.fields = {{QStringLiteral("name"), entry.text}, {QStringLiteral("value"), value}};
        entry.text += (entry.kind == Kind::READ ? QLatin1String(" -> ") : QLatin1String(" = ")) + value;
        break;
    case Kind::CALL:
        splitCall(entry.text, entry.fields);
        entry.fields[QStringLiteral("result")] = value;
        entry.tookUs = observed.tookUs;
        entry.text += QLatin1String(" -> ") + value;
        break;
    case Kind::EVENT:
        splitCall(entry.text, entry.fields);
        entry.tookUs = observed.tookUs;
        break;
    case Kind::STATE:
        entry.fields = {{QStringLiteral("state"), entry.text.toInt()},
                        {QStringLiteral("name"), playStateName(PlayState{entry.text.toInt()})}};
        entry.text = entry.text + QLatin1Char(' ') + playStateName(PlayState{entry.text.toInt()});
        break;
    case Kind::SCRIPT_ERROR:
        entry.fields[QStringLiteral("text")] = entry.text;
        break;
    default:
        break;
    }
    return entry;
}

TimelineEntry observedEntry(const MediaTraceEntry& observed) {
    TimelineEntry entry;
    entry.kind = kindOf(observed.kind);
    entry.timeUs = observed.timeUs;
    entry.player = observed.player;
    entry.text = QString::fromUtf8(observed.text).simplified();
    switch (entry.kind) {
    case Kind::COMMAND:
        entry.fields = {{QStringLiteral("name"), entry.text.section(QLatin1Char(' '), 0, 0)},
                        {QStringLiteral("arguments"), entry.text.section(QLatin1Char(' '), 1)},
                        {QStringLiteral("result"), observed.result}};
        entry.text += QStringLiteral(" -> %1").arg(observed.result);
        break;
    case Kind::REPORT:
        splitReport(entry.text, entry.fields);
        break;
    case Kind::REQUEST:
        splitRequest(entry.text, entry.fields);
        entry.fields[QStringLiteral("status")] = observed.result;
        entry.fields[QStringLiteral("bytes")] = static_cast<qint64>(observed.bytes);
        entry.text += QStringLiteral(" -> %1").arg(observed.result);
        break;
    case Kind::BUFFER:
        entry.fields[QStringLiteral("percent")] = observed.result;
        entry.text = QStringLiteral("%1 %").arg(observed.result);
        break;
    default:
        entry.fields[QStringLiteral("text")] = entry.text;
        break;
    }
    return entry;
}

} // namespace tv
