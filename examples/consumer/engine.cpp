// Defines the NPN_ functions that avcontrol-plugin.so calls. Their contracts are in npapi/npapi.h and npruntime.h.
#include "engine.h"

#include "npapi/npapi.h"

#include <cstdlib>
#include <deque>
#include <mutex>
#include <new>
#include <set>
#include <string>

namespace {

struct ScriptFunction {
    NPObject object;
    PageFunction function;
};

NPObject* allocateFunction(NPP /*npp*/, NPClass* /*aClass*/) {
    return reinterpret_cast<NPObject*>(new (std::nothrow) ScriptFunction());
}

void deallocateFunction(NPObject* object) {
    delete reinterpret_cast<ScriptFunction*>(object);
}

bool callFunction(NPObject* object, const NPVariant* arguments, uint32_t count, NPVariant* result) {
    reinterpret_cast<ScriptFunction*>(object)->function(arguments, count);
    VOID_TO_NPVARIANT(*result);
    return true;
}

NPClass functionClass() {
    NPClass made = {};
    made.structVersion = NP_CLASS_STRUCT_VERSION;
    made.allocate = allocateFunction;
    made.deallocate = deallocateFunction;
    made.invokeDefault = callFunction;
    return made;
}

struct QueuedCall {
    void (*function)(void*);
    void* userData;
};

std::mutex queueMutex; // guards `queue`: a player hands over calls on its own thread
std::deque<QueuedCall> queue;

} // namespace

NPObject* makePageFunction(PageFunction function) {
    static NPClass aClass = functionClass();
    NPObject* object = NPN_CreateObject(nullptr, &aClass);
    if (object) {
        reinterpret_cast<ScriptFunction*>(object)->function = function;
    }
    return object;
}

void runQueuedCalls() {
    for (;;) {
        QueuedCall next = {};
        {
            const std::lock_guard<std::mutex> lock(queueMutex);
            if (queue.empty()) {
                return;
            }
            next = queue.front();
            queue.pop_front();
        }
        next.function(next.userData);
    }
}

extern "C" {

void* NPN_MemAlloc(uint32_t size) {
    return std::malloc(size);
}

void NPN_MemFree(void* ptr) {
    std::free(ptr);
}

NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name) {
    static std::set<std::string> names; // an identifier is the address of the one copy of its name
    return const_cast<char*>(names.insert(name).first->c_str());
}

NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier) {
    const std::string name(static_cast<const char*>(identifier));
    auto* copy = static_cast<NPUTF8*>(NPN_MemAlloc(static_cast<uint32_t>(name.size() + 1)));
    if (copy) {
        name.copy(copy, name.size());
        copy[name.size()] = '\0';
    }
    return copy;
}

NPObject* NPN_CreateObject(NPP npp, NPClass* aClass) {
    NPObject* object =
        aClass->allocate ? aClass->allocate(npp, aClass) : static_cast<NPObject*>(std::calloc(1, sizeof(NPObject)));
    if (object) {
        object->_class = aClass;
        object->referenceCount = 1;
    }
    return object;
}

NPObject* NPN_RetainObject(NPObject* obj) {
    if (obj) {
        ++obj->referenceCount;
    }
    return obj;
}

void NPN_ReleaseObject(NPObject* obj) {
    if (!obj || --obj->referenceCount > 0) {
        return;
    }
    if (obj->_class->deallocate) {
        obj->_class->deallocate(obj);
    } else {
        std::free(obj);
    }
}

void NPN_ReleaseVariantValue(NPVariant* variant) {
    if (NPVARIANT_IS_STRING(*variant)) {
        NPN_MemFree(const_cast<NPUTF8*>(NPVARIANT_TO_STRING(*variant).UTF8Characters));
    } else if (NPVARIANT_IS_OBJECT(*variant)) {
        NPN_ReleaseObject(NPVARIANT_TO_OBJECT(*variant));
    }
    VOID_TO_NPVARIANT(*variant);
}

NPError NPN_GetValue(NPP /*instance*/, NPNVariable /*variable*/, void* /*value*/) {
    return NPERR_GENERIC_ERROR; // no window and no element: addresses must be absolute
}

bool NPN_GetProperty(NPP /*npp*/, NPObject* /*npobj*/, NPIdentifier /*name*/, NPVariant* /*result*/) {
    return false;
}

bool NPN_Invoke(NPP /*npp*/, NPObject* /*npobj*/, NPIdentifier /*name*/, const NPVariant* /*args*/, uint32_t /*count*/,
                NPVariant* /*result*/) {
    return false;
}

bool NPN_InvokeDefault(NPP /*npp*/, NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    return npobj->_class->invokeDefault && npobj->_class->invokeDefault(npobj, args, argCount, result);
}

void NPN_PluginThreadAsyncCall(NPP /*plugin*/, void (*func)(void*), void* userData) {
    const std::lock_guard<std::mutex> lock(queueMutex);
    queue.push_back({func, userData});
}

} // extern "C"
