#include "timeline/TimelineJson.h"

#include "timeline/ObservedText.h"

namespace tv {

namespace {

using namespace timeline;

/** Sets the fields that entries of one kind have. */
class Fields {
public:
    explicit Fields(QJsonObject& json) : m_json(json) {}

    void operator()(const Page& page) {
        set("url", page.url);
        if (!page.problem.isEmpty()) {
            set("problem", page.problem);
        }
    }
    void operator()(const Created& created) { set("type", QString::fromStdString(created.type)); }
    void operator()(const Gone&) {}
    void operator()(const Param& param) { setProperty(param.name, param.value); }
    void operator()(const Read& read) { setProperty(read.name, read.value); }
    void operator()(const Write& write) { setProperty(write.name, write.value); }
    void operator()(const Call& call) {
        set("name", QString::fromStdString(call.name));
        set("arguments", argumentsText(call));
        set("result", valueText(call.result));
    }
    void operator()(const Event& event) {
        set("name", QString::fromStdString(event.name));
        set("arguments", argumentsText(event));
    }
    void operator()(const State& state) {
        set("state", static_cast<int>(state.state));
        set("name", playStateName(state.state));
    }
    void operator()(const Command& command) {
        set("name", commandName(command));
        set("arguments", commandArguments(command));
        set("result", command.result);
    }
    void operator()(const Report& report) {
        set("name", reportName(report));
        if (hasCode(report)) {
            set("code", report.code);
        }
        if (!report.cause.empty()) {
            set("detail", playerText(report.cause));
        }
    }
    void operator()(const Request& request) {
        set("url", playerText(request.url));
        if (request.redirect) {
            set("redirect", playerText(*request.redirect));
        }
        if (request.range) {
            set("range", playerText(*request.range));
        }
        set("status", request.status);
        set("bytes", static_cast<qint64>(request.bytes));
    }
    void operator()(const Buffer& buffer) { set("percent", buffer.percent); }
    void operator()(const Note& note) { set("text", playerText(note.text)); }
    void operator()(const Console& console) {
        set("level", console.level);
        set("text", console.text);
        setWhere(console.where);
    }
    void operator()(const ScriptError& error) {
        set("text", error.text);
        if (error.where) {
            setWhere(*error.where);
        }
    }
    void operator()(const Key& key) {
        set("name", key.name);
        set("taken", key.taken);
    }
    void operator()(const Error& error) {
        set("code", error.code);
        set("name", playbackErrorName(error.code));
        set("cause", playerText(error.cause));
        set("url", playerText(error.url));
    }
    void operator()(const Stall& stall) {
        set("position", stall.positionMs);
        set("since", static_cast<qint64>(stall.sinceUs));
    }

private:
    void set(const char* name, const QJsonValue& value) { m_json[QLatin1String(name)] = value; }

    void setProperty(const std::string& name, const ScriptValue& value) {
        set("name", QString::fromStdString(name));
        set("value", valueText(value));
    }

    void setWhere(const SourceLine& where) {
        set("file", where.file);
        set("line", where.line);
    }

    QJsonObject& m_json;
};

} // namespace

QJsonObject timelineJson(const TimelineEntry& entry) {
    QJsonObject json;
    json[QStringLiteral("time")] = static_cast<qint64>(entry.timeUs);
    json[QStringLiteral("kind")] = QLatin1String(timelineKindName(entry.kind()));
    json[QStringLiteral("object")] = entry.object;
    if (entry.player >= 0) {
        json[QStringLiteral("player")] = entry.player;
    }
    if (entry.tookUs >= 0) {
        json[QStringLiteral("took")] = static_cast<qint64>(entry.tookUs);
    }
    std::visit(Fields(json), entry.details);
    return json;
}

} // namespace tv
