#include "HbbTVBaseClass.h"

#include "FrameworkLog.h"

#include <string.h>

HbbTVBaseClass::HbbTVBaseClass() = default;
HbbTVBaseClass::~HbbTVBaseClass() = default;

int HbbTVBaseClass::findIdentifier(const NPIdentifier* identifiers, int count, NPIdentifier name) {
    for (int i = 0; i < count; ++i) {
        if (identifiers[i] == name) {
            return i;
        }
    }
    return -1;
}

bool HbbTVBaseClass::copyVariant(const NPVariant& value, NPVariant* copy) {
    if (NPVARIANT_IS_STRING(value)) {
        NPString text = NPVARIANT_TO_STRING(value);
        if (!text.UTF8Characters) {
            text.UTF8Length = 0;
        }
        char* characters = static_cast<char*>(NPN_MemAlloc(text.UTF8Length));
        if (!characters && text.UTF8Length > 0) {
            FRAMEWORK_LOG_ERROR("No memory for a text of %u bytes\n", text.UTF8Length);
            return false;
        }
        if (text.UTF8Length > 0) {
            memcpy(characters, text.UTF8Characters, text.UTF8Length);
        }
        STRINGN_TO_NPVARIANT(characters, text.UTF8Length, *copy);
        return true;
    }
    *copy = value;
    if (NPVARIANT_IS_OBJECT(value) && NPVARIANT_TO_OBJECT(value)) {
        NPN_RetainObject(NPVARIANT_TO_OBJECT(value));
    }
    return true;
}

bool HbbTVBaseClass::makeString(const char* text, NPVariant* result) {
    NPVariant borrowed;
    STRINGN_TO_NPVARIANT(text, strlen(text), borrowed);
    return copyVariant(borrowed, result);
}

NPObjectHbbTV* HbbTVBaseClass::createRecord(NPP instance, NPClass* npClass, int type, int id, void* owner) {
    NPObject* object = NPN_CreateObject(instance, npClass);
    if (!object) {
        FRAMEWORK_LOG_ERROR("No memory for a script object of type %d\n", type);
        return nullptr;
    }
    NPObjectHbbTV* record = reinterpret_cast<NPObjectHbbTV*>(object);
    record->npObject = object;
    record->typeNPObject = type;
    record->IdNPObject = id;
    record->objectInstancePtr = owner;
    return record;
}

void HbbTVBaseClass::detachRecord(NPObjectHbbTV* record) {
    if (record) {
        record->objectInstancePtr = nullptr;
        NPN_ReleaseObject(reinterpret_cast<NPObject*>(record));
    }
}

NPObject* HbbTVBaseClass::allocateRecord(NPP /*instance*/, NPClass* /*npClass*/) {
    void* memory = NPN_MemAlloc(sizeof(NPObjectHbbTV));
    if (memory) {
        memset(memory, 0, sizeof(NPObjectHbbTV));
    }
    return static_cast<NPObject*>(memory);
}

void HbbTVBaseClass::deallocateRecord(NPObject* record) {
    NPN_MemFree(record);
}

bool HbbTVBaseClass::isFrameworkObject(const NPObject* object) {
    // Only the framework's classes carry this function, and their objects are all full records.
    return object && object->_class && object->_class->allocate == allocateRecord;
}
