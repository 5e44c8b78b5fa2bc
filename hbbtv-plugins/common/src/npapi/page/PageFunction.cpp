#include "npapi/page/PageFunction.h"

#include "FrameworkLog.h"
#include "npapi/instance/PluginInstance.h"

#include <algorithm>
#include <new>
#include <stdio.h>
#include <string.h>

/// A substitute. The page's function is a property of the element, under a name that ends with the number.
struct PageFunction {
    NPObject object;
    InstanceRef instance;
    int number;         ///< its own among those of the instance
    PageFunction* next; ///< of the instance
    TraceName name;
};

namespace {

/// The property of the element that keeps a function.
struct PropertyName {
    char text[64];

    PropertyName(const PluginInstance& instance, int number) {
        snprintf(text, sizeof text, "%s%d", instance.module().elementNames.function, number);
    }
};

bool writeFunction(const InstanceRef& instance, int number, const NPVariant& value) {
    const ScriptObject element = instance.element();
    return element && instance.setProperty(element, PropertyName(*instance.get(), number).text, value);
}

NPObject* allocate(NPP, NPClass*) {
    void* const memory = NPN_MemAlloc(sizeof(PageFunction));
    return memory ? &(new (memory) PageFunction{{}, {}, 0, nullptr, {}})->object : nullptr;
}

/// Takes a substitute out of its instance's list, so that its number is free.
void unlink(PageFunction* function) {
    PluginInstance* const live = function->instance.get();
    PageFunction** link = live ? &live->pageFunctions : nullptr;
    while (link && *link && *link != function) {
        link = &(*link)->next;
    }
    if (link && *link) {
        *link = function->next;
    }
}

void deallocate(NPObject* object) {
    PageFunction* const function = reinterpret_cast<PageFunction*>(object);
    NPVariant nothing;
    VOID_TO_NPVARIANT(nothing);
    writeFunction(function->instance, function->number, nothing);
    unlink(function);
    function->~PageFunction();
    NPN_MemFree(function);
}

// Engines call these without asking whether they are there, should a substitute ever reach script.
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

/// @return the lowest number that no function of the instance has
int freeNumber(const PluginInstance& instance) {
    const auto isTaken = [&instance](int number) {
        const PageFunction* function = instance.pageFunctions;
        while (function && function->number != number) {
            function = function->next;
        }
        return function != nullptr;
    };
    int number = 0;
    while (isTaken(number)) {
        ++number;
    }
    return number;
}

bool isSubstitute(const NPVariant& value) {
    return NPVARIANT_IS_OBJECT(value) && pageFunctionName(NPVARIANT_TO_OBJECT(value));
}

} // namespace

ScriptObject keepPageFunction(const InstanceRef& instance, const TraceName& name, NPObject* function) {
    ScriptObject substitute(instance ? NPN_CreateObject(instance.npp(), &pageFunctionClass) : nullptr);
    PluginInstance* const live = instance.get();
    if (!substitute || !live) {
        return ScriptObject::to(function);
    }
    PageFunction* const kept = reinterpret_cast<PageFunction*>(substitute.get());
    kept->instance = instance;
    kept->number = freeNumber(*live);
    kept->next = live->pageFunctions;
    live->pageFunctions = kept;
    kept->name = name;
    NPVariant value;
    OBJECT_TO_NPVARIANT(function, value);
    return writeFunction(instance, kept->number, value) ? std::move(substitute) : ScriptObject::to(function);
}

const char* pageFunctionName(const NPObject* object) {
    return object && object->_class == &pageFunctionClass ? reinterpret_cast<const PageFunction*>(object)->name.text
                                                          : nullptr;
}

ScriptObject pageFunctionBehind(const InstanceRef& instance, NPObject* object) {
    if (!pageFunctionName(object)) {
        return ScriptObject::to(object);
    }
    const PluginInstance* const live = instance.get();
    if (!live) {
        return ScriptObject();
    }
    const PropertyName name(*live, reinterpret_cast<const PageFunction*>(object)->number);
    return instance.property(instance.element(), name.text).takeObject();
}

PageArguments::PageArguments(const InstanceRef& instance, const NPVariant* args, uint32_t count) : m_values(args) {
    if (std::none_of(args, args + count, isSubstitute)) {
        return;
    }
    m_copies.reset(new (std::nothrow) NPVariant[count]);
    m_functions.reset(new (std::nothrow) ScriptObject[count]);
    if (!m_copies || !m_functions) {
        FRAMEWORK_LOG_ERROR("No memory for the %u arguments of a call of the page: it is not made\n", count);
        m_values = nullptr;
        return;
    }
    std::copy(args, args + count, m_copies.get());
    for (uint32_t i = 0; i < count; ++i) {
        if (isSubstitute(args[i])) {
            m_functions[i] = pageFunctionBehind(instance, NPVARIANT_TO_OBJECT(args[i]));
            m_copies[i] = m_functions[i].borrowed();
        }
    }
    m_values = m_copies.get();
}
