/**
 * The memory of an operation, taken before the operation changes anything or commands the player: without it the
 * operation is refused, with an error line, and everything is as it was.
 */
#ifndef AVCONTROL_OPERATIONMEMORY_H
#define AVCONTROL_OPERATIONMEMORY_H

#include "InstanceGuard.h"
#include "VideoPlugin.h"

/** The records of the notifications that an operation may queue. */
class Notifications {
public:
    Notifications() : m_records(), m_count(0) {}
    ~Notifications();
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    /** Takes records for `count` more notifications. @return false after an error line */
    [[nodiscard]] bool take(int count);

    /** @return a record with room for one number, now the caller's; null without one */
    eventData* release();

private:
    eventData* m_records[3]; ///< of a queued media: stopped, connecting, failed
    int m_count;
};

/** The buffers of one parameter: for its stored value, and for the text in the property of the same name. */
class ParameterMemory {
public:
    ParameterMemory() : m_value(nullptr), m_slotText(nullptr) {}
    ~ParameterMemory();
    ParameterMemory(const ParameterMemory&) = delete;
    ParameterMemory& operator=(const ParameterMemory&) = delete;

    /**
     * @param index  ParamNames_e
     * @param length of `text`, at most LONGEST_PARAMETER
     * @return false after an error line
     */
    [[nodiscard]] bool take(int index, const char* text, size_t length);

    /** @return the text, zero-terminated, in LONGEST_PARAMETER + 1 bytes */
    char* value() const { return m_value; }

    /** Gives the buffer of the stored value to the caller, who frees it with NPN_MemFree. */
    char* releaseValue();

    /** @param text what the property gets; as take() expected. @return a String, the caller's */
    NPVariant releaseSlotText(const char* text);

private:
    char* m_value;
    char* m_slotText;
};

/** What a write of `data` needs. */
class DataMemory {
public:
    DataMemory();
    ~DataMemory();
    DataMemory(const DataMemory&) = delete;
    DataMemory& operator=(const DataMemory&) = delete;

    /** @return false after an error line */
    [[nodiscard]] bool take(const VideoPlugin& plugin, const NPVariant& value);

    /** Gives the copy of the value to the caller. */
    NPVariant releaseCopy();

    ParameterMemory parameter;
    Notifications notifications;

private:
    NPVariant m_copy; ///< Void when it has been given
};

/**
 * Calls the object's own virtual setParam, which takes the memory over.
 * @param name of the parameter
 * @return Refused when it answers false
 */
Outcome setParamOf(VideoPlugin& plugin, const char* name, ParameterMemory* memory);

/** Calls the object's own virtual setProperty for `data`. @return Refused when it answers false */
Outcome setDataOf(VideoPlugin& plugin, const NPVariant& value, DataMemory* memory);

/** @return the memory that came with a call of setParam; null for none. At the beginning of each call. */
ParameterMemory* memoryOfParam(const char* value);

/** @return the memory that came with a call of setProperty; null for none. At the beginning of each call. */
DataMemory* memoryOfData(const NPVariant* value);

#endif
