#include "timeline/ObservedText.h"

#include <QByteArrayList>
#include <array>
#include <cmath>

namespace tv {

namespace {

/** @return the text on one line, at most longestText bytes of it */
QString oneLine(const QByteArray& utf8) {
    QByteArray line = utf8;
    if (static_cast<size_t>(line.size()) > longestText) {
        line.truncate(static_cast<int>(longestText));
        line.append("...");
    }
    for (char& character : line) {
        if (static_cast<unsigned char>(character) < ' ') {
            character = ' ';
        }
    }
    return QString::fromUtf8(line);
}

QByteArray numberText(double number) {
    const bool isWhole = std::floor(number) == number && std::abs(number) < 1e15;
    return isWhole ? QByteArray::number(number, 'f', 0) : QByteArray::number(number, 'g', 6);
}

/** The value as script would write it, not cut. */
struct WrittenValue {
    QByteArray operator()(NoValue) const { return "no value"; }
    QByteArray operator()(UndefinedValue) const { return "undefined"; }
    QByteArray operator()(NullValue) const { return "null"; }
    QByteArray operator()(ObjectValue) const { return "object"; }
    QByteArray operator()(bool value) const { return value ? "true" : "false"; }
    QByteArray operator()(double value) const { return numberText(value); }
    QByteArray operator()(const std::string& value) const { return '"' + QByteArray::fromStdString(value) + '"'; }
};

QByteArray written(const std::vector<ScriptValue>& values) {
    QByteArrayList texts;
    for (const ScriptValue& value : values) {
        texts.append(std::visit(WrittenValue(), value));
    }
    return texts.join(", ");
}

} // namespace

const char* timelineKindName(TimelineKind kind) {
    static constexpr std::array<const char*, timelineKindCount> names = {
        "page",   "created", "gone",   "param", "call",    "read",         "write", "state", "event", "command",
        "report", "request", "buffer", "note",  "console", "script-error", "key",   "error", "stall"};
    return names[static_cast<size_t>(kind)];
}

QString valueText(const ScriptValue& value) {
    return oneLine(std::visit(WrittenValue(), value));
}

QString argumentsText(const timeline::Call& call) {
    return oneLine(written(call.arguments));
}

QString argumentsText(const timeline::Event& event) {
    const QByteArray arguments = written(event.arguments);
    return oneLine(event.property.empty() ? arguments
                                          : '{' + QByteArray::fromStdString(event.property) + ": " + arguments + '}');
}

QString commandName(const timeline::Command& command) {
    static constexpr std::array<const char*, MEDIA_FUNCTION_COUNT> names = {"Open",
                                                                            "Close",
                                                                            "SetUserAgent",
                                                                            "AddCallback",
                                                                            "RemoveCallback",
                                                                            "AddSubtitle",
                                                                            "SetSource",
                                                                            "SetWindow",
                                                                            "Play",
                                                                            "Pause",
                                                                            "Resume",
                                                                            "Stop",
                                                                            "Seek",
                                                                            "SetSpeed",
                                                                            "SelectAVVideoComponent",
                                                                            "SelectAVAudioComponent",
                                                                            "SelectAVSubtitleComponent",
                                                                            "UnselectAVVideoComponent",
                                                                            "UnselectAVAudioComponent",
                                                                            "UnselectAVSubtitleComponent",
                                                                            "SelectDefaultAVComponent",
                                                                            "UnselectAVComponentByType"};
    return QLatin1String(names[command.function]);
}

QString commandArguments(const timeline::Command& command) {
    const auto number = [&command](size_t i) { return QString::number(command.numbers[i]); };
    switch (command.function) {
    case MEDIA_FUNCTION_ADD_SUBTITLE:
    case MEDIA_FUNCTION_SET_SOURCE:
        return playerText(command.url);
    case MEDIA_FUNCTION_SET_WINDOW:
        return QStringLiteral("%1,%2 %3x%4").arg(number(0), number(1), number(2), number(3));
    case MEDIA_FUNCTION_SEEK:
    case MEDIA_FUNCTION_SET_SPEED:
    case MEDIA_FUNCTION_SELECT_DEFAULT_AV_COMPONENT:
    case MEDIA_FUNCTION_UNSELECT_AV_COMPONENT_BY_TYPE:
        return number(0);
    case MEDIA_FUNCTION_SELECT_AV_VIDEO_COMPONENT:
    case MEDIA_FUNCTION_SELECT_AV_AUDIO_COMPONENT:
    case MEDIA_FUNCTION_SELECT_AV_SUBTITLE_COMPONENT:
    case MEDIA_FUNCTION_UNSELECT_AV_VIDEO_COMPONENT:
    case MEDIA_FUNCTION_UNSELECT_AV_AUDIO_COMPONENT:
    case MEDIA_FUNCTION_UNSELECT_AV_SUBTITLE_COMPONENT:
        return QStringLiteral("pid ") + (command.numberCount > 0 ? number(0) : QStringLiteral("none"));
    default:
        return {};
    }
}

QString reportName(const timeline::Report& report) {
    static constexpr std::array<const char*, eMEDIA_CALLBACK_MAX> names = {"",
                                                                           "STOPPED",
                                                                           "PLAYING",
                                                                           "PAUSED",
                                                                           "CONNECTING",
                                                                           "BUFFERING",
                                                                           "FINISHED",
                                                                           "POSITION_CHANGED",
                                                                           "SPEED_CHANGED",
                                                                           "ERROR",
                                                                           "SELECTED_COMPONENT_CHANGED",
                                                                           "PARENTAL_RATING_CHANGED",
                                                                           "DRM_RIGHTS_ERROR"};
    return QLatin1String(names[report.event]);
}

bool hasCode(const timeline::Report& report) {
    return report.event >= eMEDIA_CALLBACK_ERROR;
}

QString playerText(const std::string& text) {
    return QString::fromStdString(text).simplified();
}

} // namespace tv
