#include "timeline/ObservedEntry.h"

#include "timeline/ObservedText.h"

#include <algorithm>

namespace tv {

namespace {

ScriptValue copyOf(const HbbTVPluginTraceValue& value) {
    switch (value.type) {
    case HBBTV_VALUE_UNDEFINED:
        return UndefinedValue();
    case HBBTV_VALUE_NULL:
        return NullValue();
    case HBBTV_VALUE_BOOLEAN:
        return value.boolean;
    case HBBTV_VALUE_NUMBER:
        return value.number;
    case HBBTV_VALUE_STRING:
        // One byte more than is shown, so that it is seen to be cut.
        return std::string(value.string.bytes, std::min<size_t>(value.string.length, longestText + 1));
    case HBBTV_VALUE_OBJECT:
        return ObjectValue();
    case HBBTV_VALUE_NONE:
        break;
    }
    return NoValue();
}

std::vector<ScriptValue> copyOf(const HbbTVPluginTraceValue* values, uint32_t count) {
    std::vector<ScriptValue> copies(count);
    std::transform(values, values + count, copies.begin(), [](const auto& value) { return copyOf(value); });
    return copies;
}

std::optional<std::string> optional(const char* text) {
    return text ? std::optional<std::string>(text) : std::nullopt;
}

timeline::Event eventOf(const HbbTVPluginTraceEvent& event) {
    return {event.name, event.property ? event.property : "", copyOf(event.arguments, event.argumentCount)};
}

timeline::ScriptError failureOf(const HbbTVPluginTraceEvent& event) {
    return {QStringLiteral("%1(%2) failed").arg(QString::fromUtf8(event.name), argumentsText(eventOf(event))), {}};
}

timeline::Details detailsOf(const HbbTVPluginTraceEntry& observed) {
    const HbbTVPluginTraceProperty& property = observed.property;
    switch (observed.kind) {
    case HBBTV_TRACE_CREATED:
        return timeline::Created{observed.created.type};
    case HBBTV_TRACE_DESTROYED:
        return timeline::Gone();
    case HBBTV_TRACE_PARAM:
        return timeline::Param{property.name, copyOf(property.value)};
    case HBBTV_TRACE_CALL:
        return timeline::Call{observed.call.name, copyOf(observed.call.arguments, observed.call.argumentCount),
                              copyOf(observed.call.result)};
    case HBBTV_TRACE_READ:
        return timeline::Read{property.name, copyOf(property.value)};
    case HBBTV_TRACE_WRITE:
        return timeline::Write{property.name, copyOf(property.value)};
    case HBBTV_TRACE_STATE:
        return timeline::State{PlayState{observed.state.state}};
    case HBBTV_TRACE_EVENT:
        return eventOf(observed.event);
    case HBBTV_TRACE_ERROR:
        return failureOf(observed.event);
    }
    return timeline::Note{"an entry of unknown kind"};
}

timeline::Details detailsOf(const MediaTraceEntry& observed) {
    switch (observed.kind) {
    case MEDIA_TRACE_COMMAND: {
        const MediaTraceCommand& command = observed.command;
        timeline::Command copy{
            command.function, command.url ? command.url : "", {}, command.numberCount, command.result};
        std::copy_n(command.numbers, command.numberCount, copy.numbers.begin());
        return copy;
    }
    case MEDIA_TRACE_REPORT:
        return timeline::Report{observed.report.event, observed.report.code, observed.report.cause};
    case MEDIA_TRACE_REQUEST: {
        const MediaTraceRequest& request = observed.request;
        return timeline::Request{request.url, optional(request.redirect), optional(request.range), request.status,
                                 request.bytes};
    }
    case MEDIA_TRACE_BUFFERING:
        return timeline::Buffer{observed.buffering.percent};
    case MEDIA_TRACE_NOTE:
        return timeline::Note{observed.note.text};
    }
    return timeline::Note{"an entry of unknown kind"};
}

} // namespace

TimelineEntry observedEntry(const HbbTVPluginTraceEntry& observed) {
    TimelineEntry entry;
    entry.timeUs = observed.timeUs;
    entry.object = observed.instance;
    if (observed.kind == HBBTV_TRACE_CALL) {
        entry.tookUs = observed.call.tookUs;
    } else if (observed.kind == HBBTV_TRACE_EVENT) {
        entry.tookUs = observed.event.tookUs;
    }
    entry.details = detailsOf(observed);
    return entry;
}

TimelineEntry observedEntry(const MediaTraceEntry& observed) {
    TimelineEntry entry;
    entry.timeUs = observed.timeUs;
    entry.player = observed.player;
    entry.details = detailsOf(observed);
    return entry;
}

} // namespace tv
