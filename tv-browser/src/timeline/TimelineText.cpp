#include "timeline/TimelineText.h"

#include "timeline/ObservedText.h"

namespace tv {

namespace {

using namespace timeline;

const QLatin1String yields(" -> ");

QString withArguments(const std::string& name, const QString& arguments) {
    return QStringLiteral("%1(%2)").arg(QString::fromStdString(name), arguments);
}

QString at(const QString& text, const SourceLine& where) {
    return QStringLiteral("%1 (%2:%3)").arg(text, where.file).arg(where.line);
}

QString inBrackets(const std::string& cause) {
    return cause.empty() ? QString() : QStringLiteral(" (%1)").arg(playerText(cause));
}

struct Text {
    QString operator()(const Page& page) const { return page.problem.isEmpty() ? page.url : page.problem; }
    QString operator()(const Created& created) const { return QString::fromStdString(created.type); }
    QString operator()(const Gone&) const { return QStringLiteral("destroyed"); }
    QString operator()(const Param& param) const { return assignment(param.name, param.value); }
    QString operator()(const Write& write) const { return assignment(write.name, write.value); }
    QString operator()(const Read& read) const {
        return QString::fromStdString(read.name) + yields + valueText(read.value);
    }
    QString operator()(const Call& call) const {
        return withArguments(call.name, argumentsText(call)) + yields + valueText(call.result);
    }
    QString operator()(const Event& event) const { return withArguments(event.name, argumentsText(event)); }
    QString operator()(const State& state) const {
        return QStringLiteral("%1 %2").arg(static_cast<int>(state.state)).arg(playStateName(state.state));
    }
    QString operator()(const Command& command) const {
        const QString arguments = commandArguments(command);
        return commandName(command) + (arguments.isEmpty() ? QString() : QLatin1Char(' ') + arguments) + yields +
               QString::number(command.result);
    }
    QString operator()(const Report& report) const {
        return reportName(report) + (hasCode(report) ? QStringLiteral(" %1").arg(report.code) : QString()) +
               inBrackets(report.cause);
    }
    QString operator()(const Request& request) const {
        QString text = QLatin1String("GET ") + playerText(request.url);
        if (request.redirect) {
            text += yields + playerText(*request.redirect);
        }
        if (request.range) {
            text += QLatin1Char(' ') + playerText(*request.range);
        }
        return text + yields + QString::number(request.status);
    }
    QString operator()(const Buffer& buffer) const { return QStringLiteral("%1 %").arg(buffer.percent); }
    QString operator()(const Note& note) const { return playerText(note.text); }
    QString operator()(const Console& console) const { return at(console.text, console.where); }
    QString operator()(const ScriptError& error) const {
        return error.where ? at(error.text, *error.where) : error.text;
    }
    QString operator()(const Key& key) const {
        return key.taken ? key.name : key.name + QLatin1String(" is kept from the page: not in its key set");
    }
    QString operator()(const Error& error) const {
        return QStringLiteral("%1: %2%3, %4")
            .arg(error.code)
            .arg(playbackErrorName(error.code), inBrackets(error.cause), playerText(error.url));
    }
    QString operator()(const Stall& stall) const {
        return QStringLiteral("playing, but the position stands still at %1 ms").arg(stall.positionMs);
    }

private:
    static QString assignment(const std::string& name, const ScriptValue& value) {
        return QString::fromStdString(name) + QLatin1String(" = ") + valueText(value);
    }
};

} // namespace

QString timelineText(const TimelineEntry& entry) {
    return std::visit(Text(), entry.details);
}

} // namespace tv
