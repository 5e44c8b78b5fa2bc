#include "OperationMemory.h"

#include "Internals.h"
#include "Log.h"
#include "ScriptNames.h"
#include "Slots.h"

#include <stdlib.h>
#include <string.h>

// What a virtual operation is called with beside its parameters.
static ParameterMemory* handedParameter = nullptr;
static DataMemory* handedData = nullptr;
static const NPVariant* handedValue = nullptr;

Notifications::~Notifications() {
    while (eventData* const record = release()) {
        free(record->data);
        free(record);
    }
}

bool Notifications::take(int count) {
    for (int i = 0; i < count; ++i) {
        eventData* const record = static_cast<eventData*>(malloc(sizeof(eventData)));
        // Both kinds of payload are one number.
        void* const payload = malloc(sizeof(stateChangeData));
        if (!record || !payload) {
            LOG_ERROR("No memory to notify the page: the operation is refused\n");
            free(record);
            free(payload);
            return false;
        }
        record->data = payload;
        m_records[m_count++] = record;
    }
    return true;
}

eventData* Notifications::release() {
    return m_count > 0 ? m_records[--m_count] : nullptr;
}

ParameterMemory::~ParameterMemory() {
    if (m_value) {
        NPN_MemFree(m_value);
    }
    if (m_slotText) {
        NPN_MemFree(m_slotText);
    }
}

bool ParameterMemory::take(int index, const char* text, size_t length) {
    m_value = static_cast<char*>(NPN_MemAlloc(LONGEST_PARAMETER + 1));
    bool complete = m_value;
    if (m_value) {
        memset(m_value, 0, LONGEST_PARAMETER + 1);
        memcpy(m_value, text, length);
    }
    if (index == PARAM_DATA || index == PARAM_WIDTH || index == PARAM_HEIGHT || index == PARAM_CACHE) {
        // How long an address that is relative becomes is known when the page has been asked for its own.
        const bool mayGrow = index == PARAM_DATA && m_value && isRelativeAddress(m_value);
        const size_t longest = mayGrow ? LONGEST_PARAMETER : length;
        m_slotText = static_cast<char*>(NPN_MemAlloc(static_cast<uint32_t>(longest)));
        complete = complete && (m_slotText || longest == 0);
    }
    if (!complete) {
        LOG_ERROR("No memory for parameter %s\n", psParamNames[index]);
    }
    return complete;
}

char* ParameterMemory::releaseValue() {
    char* const value = m_value;
    m_value = nullptr;
    return value;
}

NPVariant ParameterMemory::releaseSlotText(const char* text) {
    const size_t length = strlen(text);
    if (length > 0) {
        memcpy(m_slotText, text, length);
    }
    const NPVariant value = stringVariant(m_slotText, length);
    m_slotText = nullptr;
    return value;
}

DataMemory::DataMemory() : m_copy(voidVariant()) {}

DataMemory::~DataMemory() {
    releaseHeldValue(m_copy);
}

bool DataMemory::take(const VideoPlugin& plugin, const NPVariant& value) {
    if (!HbbTVBaseClass::copyVariant(value, &m_copy)) {
        return false;
    }
    if (!isLoadableAddress(value)) {
        return true;
    }
    const NPString& text = NPVARIANT_TO_STRING(value);
    return parameter.take(PARAM_DATA, text.UTF8Characters, text.UTF8Length) &&
           (currentPlayState(plugin) == MP_STOPPED || notifications.take(1));
}

NPVariant DataMemory::releaseCopy() {
    const NPVariant copy = m_copy;
    m_copy = voidVariant();
    return copy;
}

Outcome setParamOf(VideoPlugin& plugin, const char* name, ParameterMemory* memory) {
    const InstanceGuard guard(&plugin);
    handedParameter = memory;
    // The operation's parameter is not const, but it changes nothing.
    const bool taken = plugin.setParam(const_cast<char*>(name), memory->value());
    handedParameter = nullptr;
    return guard.alive() && !taken ? Outcome::Refused : guard.outcome();
}

Outcome setDataOf(VideoPlugin& plugin, const NPVariant& value, DataMemory* memory) {
    const InstanceGuard guard(&plugin);
    handedData = memory;
    handedValue = &value;
    const bool taken = static_cast<PluginBaseClass&>(plugin).setProperty(piProperties[data], &value);
    handedData = nullptr;
    return guard.alive() && !taken ? Outcome::Refused : guard.outcome();
}

ParameterMemory* memoryOfParam(const char* value) {
    ParameterMemory* const handed = handedParameter;
    handedParameter = nullptr;
    return handed && handed->value() == value ? handed : nullptr;
}

DataMemory* memoryOfData(const NPVariant* value) {
    DataMemory* const handed = handedData;
    handedData = nullptr;
    return handed && handedValue == value ? handed : nullptr;
}
