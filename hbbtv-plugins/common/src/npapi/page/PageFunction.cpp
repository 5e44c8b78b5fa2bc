#include "npapi/page/PageFunction.h"

#include "npapi/instance/PluginInstance.h"

#include <algorithm>
#include <string.h>
#include <string>

namespace {

constexpr size_t NAME_SIZE = 64;

struct PageFunction {
    NPObject object;
    int instance; ///< number of the PluginInstance
    int place;    ///< where its element keeps the function
    char name[NAME_SIZE];
};

NPObject* elementOf(NPP npp) {
    NPObject* element = nullptr;
    return NPN_GetValue(npp, NPNVPluginElementNPObject, &element) == NPERR_NO_ERROR ? element : nullptr;
}

/// @return a property of the element that neither pages nor plug-ins use
NPIdentifier propertyOf(int place) {
    return NPN_GetStringIdentifier(("avcontrol " + std::to_string(place)).c_str());
}

bool writePlace(NPP npp, int place, const NPVariant& value) {
    NPObject* element = elementOf(npp);
    const bool written = element && NPN_SetProperty(npp, element, propertyOf(place), &value);
    NPN_ReleaseObject(element);
    return written;
}

NPObject* allocate(NPP, NPClass*) {
    void* memory = NPN_MemAlloc(sizeof(PageFunction));
    if (memory) {
        memset(memory, 0, sizeof(PageFunction));
    }
    return static_cast<NPObject*>(memory);
}

void deallocate(NPObject* object) {
    const PageFunction* function = reinterpret_cast<PageFunction*>(object);
    if (PluginInstance* instance = PluginInstance::withNumber(function->instance)) {
        NPVariant nothing;
        VOID_TO_NPVARIANT(nothing);
        writePlace(instance->npp(), function->place, nothing);
        instance = PluginInstance::withNumber(function->instance);
        if (instance) {
            instance->functionPlaces()[static_cast<size_t>(function->place)] = false;
        }
    }
    NPN_MemFree(object);
}

// Engines call these without asking whether they are there, should a stand-in ever reach script.
bool hasNothing(NPObject*, NPIdentifier) {
    return false;
}

bool invokeNothing(NPObject*, NPIdentifier, const NPVariant*, uint32_t, NPVariant*) {
    return false;
}

bool invokeDefault(NPObject*, const NPVariant*, uint32_t, NPVariant*) {
    return false;
}

bool readNothing(NPObject*, NPIdentifier, NPVariant*) {
    return false;
}

bool writeNothing(NPObject*, NPIdentifier, const NPVariant*) {
    return false;
}

NPClass pageFunctionClass = {NP_CLASS_STRUCT_VERSION,
                             allocate,
                             deallocate,
                             nullptr,
                             hasNothing,
                             invokeNothing,
                             invokeDefault,
                             hasNothing,
                             readNothing,
                             writeNothing,
                             nullptr,
                             nullptr,
                             nullptr};

/// @return a free place, from now on taken
int takePlace(std::vector<bool>& places) {
    const auto free = std::find(places.begin(), places.end(), false);
    const auto place = free - places.begin();
    if (free == places.end()) {
        places.push_back(true);
    } else {
        *free = true;
    }
    return static_cast<int>(place);
}

} // namespace

NPObject* keepPageFunction(PluginInstance& instance, const char* name, NPObject* function) {
    NPObject* standIn = NPN_CreateObject(instance.npp(), &pageFunctionClass);
    if (!standIn) {
        return NPN_RetainObject(function);
    }
    PageFunction* kept = reinterpret_cast<PageFunction*>(standIn);
    kept->instance = instance.number();
    kept->place = takePlace(instance.functionPlaces());
    strncpy(kept->name, name, NAME_SIZE - 1);
    NPVariant value;
    OBJECT_TO_NPVARIANT(function, value);
    if (!writePlace(instance.npp(), kept->place, value)) {
        NPN_ReleaseObject(standIn);
        return NPN_RetainObject(function);
    }
    return standIn;
}

const char* pageFunctionName(const NPObject* object) {
    return object && object->_class == &pageFunctionClass ? reinterpret_cast<const PageFunction*>(object)->name
                                                          : nullptr;
}

NPObject* pageFunctionBehind(NPP npp, NPObject* object) {
    if (!pageFunctionName(object)) {
        return NPN_RetainObject(object);
    }
    NPObject* element = elementOf(npp);
    NPVariant function;
    VOID_TO_NPVARIANT(function);
    const bool found =
        element && NPN_GetProperty(npp, element, propertyOf(reinterpret_cast<PageFunction*>(object)->place), &function);
    NPN_ReleaseObject(element);
    if (found && !NPVARIANT_IS_OBJECT(function)) {
        NPN_ReleaseVariantValue(&function);
    }
    return found && NPVARIANT_IS_OBJECT(function) ? NPVARIANT_TO_OBJECT(function) : nullptr;
}

PageArguments::PageArguments(NPP npp, const NPVariant* args, uint32_t count) : m_args(args) {
    const auto isStandIn = [](const NPVariant& value) {
        return NPVARIANT_IS_OBJECT(value) && pageFunctionName(NPVARIANT_TO_OBJECT(value));
    };
    if (std::none_of(args, args + count, isStandIn)) {
        return;
    }
    m_copies.assign(args, args + count);
    for (NPVariant& value : m_copies) {
        if (NPVARIANT_IS_OBJECT(value)) {
            NPObject* function = pageFunctionBehind(npp, NPVARIANT_TO_OBJECT(value));
            if (function) {
                OBJECT_TO_NPVARIANT(function, value);
            } else {
                NULL_TO_NPVARIANT(value);
            }
        }
    }
}

PageArguments::~PageArguments() {
    for (const NPVariant& value : m_copies) {
        if (NPVARIANT_IS_OBJECT(value)) {
            NPN_ReleaseObject(NPVARIANT_TO_OBJECT(value));
        }
    }
}
