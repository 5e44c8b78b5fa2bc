/**
 * What an entry of the timeline says, a struct for each kind. docs/timeline.md describes them.
 *
 * Nothing is formatted here: recording stays cheap, and text is made when somebody looks. std::string holds UTF-8.
 */
#ifndef TIMELINEDETAILS_H
#define TIMELINEDETAILS_H

#include "base/PlayState.h"
#include "media_trace.h"
#include "timeline/ScriptValue.h"

#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tv {

enum class TimelineKind {
    PAGE,
    CREATED,
    GONE,
    PARAM,
    CALL,
    READ,
    WRITE,
    STATE,
    EVENT,
    COMMAND,
    REPORT,
    REQUEST,
    BUFFER,
    NOTE,
    CONSOLE,
    SCRIPT_ERROR,
    KEY,
    ERROR,
    STALL
};

constexpr int timelineKindCount = static_cast<int>(TimelineKind::STALL) + 1;

namespace timeline {

struct Page {
    static constexpr TimelineKind kind = TimelineKind::PAGE;
    QString url;
    QString problem; ///< why it cannot be loaded; empty when it is
};

struct Created {
    static constexpr TimelineKind kind = TimelineKind::CREATED;
    std::string type;
};

struct Gone {
    static constexpr TimelineKind kind = TimelineKind::GONE;
};

struct Param {
    static constexpr TimelineKind kind = TimelineKind::PARAM;
    std::string name;
    ScriptValue value;
};

struct Call {
    static constexpr TimelineKind kind = TimelineKind::CALL;
    std::string name;
    std::vector<ScriptValue> arguments;
    ScriptValue result;
};

struct Read {
    static constexpr TimelineKind kind = TimelineKind::READ;
    std::string name;
    ScriptValue value;
};

struct Write {
    static constexpr TimelineKind kind = TimelineKind::WRITE;
    std::string name;
    ScriptValue value;
};

struct State {
    static constexpr TimelineKind kind = TimelineKind::STATE;
    PlayState state;
};

struct Event {
    static constexpr TimelineKind kind = TimelineKind::EVENT;
    std::string name;
    std::string property; ///< of the event object, whose value the one argument is; empty when there is none
    std::vector<ScriptValue> arguments;
};

struct Command {
    static constexpr TimelineKind kind = TimelineKind::COMMAND;
    MediaTraceFunction function;
    std::string url;
    std::array<int, 4> numbers;
    int numberCount;
    int result;
};

struct Report {
    static constexpr TimelineKind kind = TimelineKind::REPORT;
    eMEDIA_CALLBACK_EVENT event;
    int code;
    std::string cause;
};

struct Request {
    static constexpr TimelineKind kind = TimelineKind::REQUEST;
    std::string url;
    std::optional<std::string> redirect;
    std::optional<std::string> range;
    int status;
    int64_t bytes; ///< -1: not said
};

struct Buffer {
    static constexpr TimelineKind kind = TimelineKind::BUFFER;
    int percent;
};

struct Note {
    static constexpr TimelineKind kind = TimelineKind::NOTE;
    std::string text;
};

/** Where in a page's source something happened. */
struct SourceLine {
    QString file;
    int line;
};

struct Console {
    static constexpr TimelineKind kind = TimelineKind::CONSOLE;
    QString level;
    QString text;
    SourceLine where;
};

struct ScriptError {
    static constexpr TimelineKind kind = TimelineKind::SCRIPT_ERROR;
    QString text;
    std::optional<SourceLine> where;
};

struct Key {
    static constexpr TimelineKind kind = TimelineKind::KEY;
    QString name;
    bool taken; ///< by the page, whose key set has it
};

struct Error {
    static constexpr TimelineKind kind = TimelineKind::ERROR;
    int code;
    std::string cause;
    std::string url;
};

struct Stall {
    static constexpr TimelineKind kind = TimelineKind::STALL;
    int positionMs;
    int64_t sinceUs;
};

using Details = std::variant<Page, Created, Gone, Param, Call, Read, Write, State, Event, Command, Report, Request,
                             Buffer, Note, Console, ScriptError, Key, Error, Stall>;

} // namespace timeline

} // namespace tv

#endif
