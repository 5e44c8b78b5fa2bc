// The engine's functions over the objects of the scripted browser, each of them a point at which something may happen.
#include "allocations.h"
#include "journal.h"
#include "points.h"
#include "script_objects.h"

#include <limits>

#include <string.h>

namespace fake {

std::function<void(Point&)> Point::hook;

Point::Point(const char* function, Reach reach, NPIdentifier detail, int oddities)
    : m_function(function), m_reach(reach), m_detail(detail), m_oddities(oddities), m_odd(0) {
    static bool inHook = false;
    if (hook && browser().pluginThread == std::this_thread::get_id() && !inHook) {
        inHook = true;
        hook(*this);
        inHook = false;
    }
}

std::string Point::name() const {
    return m_detail ? m_function + ("(" + nameOf(m_detail) + ")") : m_function;
}

namespace {

/// An object that the engine itself holds while it looks at it.
class Held {
public:
    explicit Held(NPObject* object) : m_object(retain(object)) {}
    ~Held() {
        if (browser().alive(m_object)) {
            release(m_object);
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    /// @return null when it has gone all the same, as a frame's window does
    NPObject* object() const { return browser().alive(m_object) ? m_object : nullptr; }

private:
    NPObject* m_object;
};

/// Engines look into the handle: it must be alive. @return the element of the handle's instance
NPObject* elementOf(NPP handle) {
    NPObject* element = handle ? static_cast<NPObject*>(handle->ndata) : nullptr;
    return element ? element : browser().element;
}

constexpr int ODD_VALUES = 11; ///< ten values, and none

Value oddValue(int number) {
    switch (number) {
    case 1:
        return Value();
    case 2:
        return nullptr;
    case 3:
        return static_cast<NPObject*>(nullptr);
    case 4:
        return browser().bareObject();
    case 5:
        return "";
    case 6:
        return std::string(100000, 'w');
    case 7:
        return std::numeric_limits<int>::min();
    case 8:
        return std::numeric_limits<double>::quiet_NaN();
    case 9:
        return 1e300;
    default:
        return true;
    }
}

/// What must not be used: this would crash.
NPObject* garbage() {
    return reinterpret_cast<NPObject*>(16);
}

/// @param found whether `result` has a value. @return what the engine returns, perhaps with another value
bool answer(const Point& point, bool found, NPVariant* result) {
    if (found && !point.odd()) {
        return true;
    }
    if (found) {
        releaseValue(result);
    }
    if (point.odd() && point.odd() < ODD_VALUES) {
        oddValue(point.odd()).give(result);
        return true;
    }
    VOID_TO_NPVARIANT(*result);
    if (point.odd() || browser().leavesGarbage) {
        OBJECT_TO_NPVARIANT(garbage(), *result);
    }
    return false;
}

/// @return how far script reaches at an access: some properties of a window run no script at all
Reach reachOf(NPObject* object, NPIdentifier name) {
    const Browser& page = browser();
    const bool isFixed = object == page.location ||
                         (object == page.window && (nameOf(name) == "location" || nameOf(name) == "document"));
    return isFixed ? Reach::Script : Reach::Frame;
}

void* memAlloc(uint32_t size) {
    const Point point("NPN_MemAlloc");
    return allocationFails() ? nullptr : newBlock(size);
}

void memFree(void* block) {
    const Point point("NPN_MemFree");
    freeBlock(block);
}

void asyncCall(NPP handle, void (*function)(void*), void* data) {
    const Point point("NPN_PluginThreadAsyncCall");
    if (browser().pluginThread == std::this_thread::get_id()) {
        elementOf(handle); // A player's thread may come after the instance: engines only compare the handle then.
    }
    const std::lock_guard<std::mutex> lock(browser().mutex);
    browser().calls.push_back({handle, function, data});
}

NPError getValue(NPP handle, NPNVariable variable, void* value) {
    EXPECT_PLUGIN_THREAD();
    NPObject* element = elementOf(handle);
    EXPECT_TRUE(variable != NPNVWindowNPObject || browser().window) << "the window of a frame that has gone";
    const bool isWindow = variable == NPNVWindowNPObject;
    const Point point("NPN_GetValue", isWindow ? Reach::Frame : Reach::Nothing, nullptr, 3);
    if (!isWindow && variable != NPNVPluginElementNPObject) {
        return NPERR_INVALID_PARAM;
    }
    NPObject*& given = *static_cast<NPObject**>(value);
    NPObject* object = isWindow ? browser().window : element;
    if (point.odd()) {
        given = point.odd() == 1 ? garbage() : nullptr;
        return point.odd() == 2 ? NPERR_NO_ERROR : NPERR_GENERIC_ERROR;
    }
    given = browser().objects == Browser::Gives ? retain(object) : nullptr;
    return browser().objects == Browser::Refuses || !object ? NPERR_GENERIC_ERROR : NPERR_NO_ERROR;
}

NPError setValue(NPP handle, NPPVariable, void*) {
    const Point point("NPN_SetValue", Reach::Nothing, nullptr, 1);
    elementOf(handle);
    return point.odd() ? NPERR_GENERIC_ERROR : NPERR_NO_ERROR;
}

NPIdentifier stringIdentifier(const NPUTF8* name) {
    const Point point("NPN_GetStringIdentifier", Reach::Nothing, nullptr, 1);
    return point.odd() ? nullptr : identifier(name);
}

NPIdentifier intIdentifier(int32_t number) {
    const Point point("NPN_GetIntIdentifier");
    return identifier("#" + std::to_string(number));
}

bool isString(NPIdentifier identifier) {
    return nameOf(identifier).compare(0, 1, "#") != 0;
}

int32_t intOf(NPIdentifier identifier) {
    const NumberPoint point("NPN_IntFromIdentifier");
    return point.answer(std::stoi(nameOf(identifier).substr(1)));
}

NPUTF8* utf8Of(NPIdentifier identifier) {
    const Point point("NPN_UTF8FromIdentifier", Reach::Nothing, nullptr, 1);
    if (point.odd() || !identifier) {
        return nullptr;
    }
    const std::string& text = nameOf(identifier);
    void* copy = memAlloc(static_cast<uint32_t>(text.size() + 1));
    return static_cast<NPUTF8*>(copy ? memcpy(copy, text.c_str(), text.size() + 1) : nullptr);
}

NPObject* createObject(NPP handle, NPClass* aClass) {
    const Point point("NPN_CreateObject", Reach::Nothing, nullptr, 1);
    elementOf(handle);
    return point.odd() ? nullptr : makeObject(handle, aClass);
}

void releaseObject(NPObject* object) {
    release(object);
    const Point point("NPN_ReleaseObject", Reach::Script); // deallocate may run layout
}

void releaseVariantValue(NPVariant* value) {
    const bool isObject = NPVARIANT_IS_OBJECT(*value);
    releaseValue(value);
    const Point point("NPN_ReleaseVariantValue", isObject ? Reach::Script : Reach::Nothing);
}

bool invoke(NPP handle, NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t count, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(object);
    const ScriptObject* own = scriptObject(object);
    if (own && own->methods.count(nameOf(name))) {
        note(own->name + "." + nameOf(name) + textOf(args, count));
    }
    const Point point("NPN_Invoke", Reach::Frame, name, ODD_VALUES);
    return answer(point, held.object() && callMethod(held.object(), name, args, count, result), result);
}

bool invokeDefault(NPP handle, NPObject* object, const NPVariant* args, uint32_t count, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(object);
    const Point point("NPN_InvokeDefault", Reach::Frame, nullptr, ODD_VALUES);
    ScriptObject* own = held.object() ? scriptObject(held.object()) : nullptr;
    const bool isFunction = own && own->call;
    if (isFunction) {
        own->call(args, count).give(result);
    }
    return answer(point, isFunction, result);
}

bool getProperty(NPP handle, NPObject* object, NPIdentifier name, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(object);
    const Point point("NPN_GetProperty", reachOf(object, name), name, ODD_VALUES);
    return answer(point, held.object() && readProperty(held.object(), name, result), result);
}

bool setProperty(NPP handle, NPObject* object, NPIdentifier name, const NPVariant* value) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(object);
    const Point point("NPN_SetProperty", Reach::Frame, name, 1);
    return !point.odd() && held.object() && writeProperty(held.object(), name, *value);
}

bool removeProperty(NPP handle, NPObject* object, NPIdentifier name) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(object);
    const Point point("NPN_RemoveProperty", Reach::Frame, name, 1);
    ScriptObject* own = !point.odd() && held.object() ? scriptObject(held.object()) : nullptr;
    return own && own->properties.erase(nameOf(name)) > 0;
}

bool evaluate(NPP handle, NPObject* window, NPString* script, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    elementOf(handle);
    const Held held(window);
    const Point point("NPN_Evaluate", Reach::Frame, nullptr, ODD_VALUES);
    const Value source(std::string(script->UTF8Characters, script->UTF8Length));
    return answer(point, held.object() && callMethod(held.object(), identifier("eval"), &source.variant(), 1, result),
                  result);
}

NPNetscapeFuncs makeTable() {
    NPNetscapeFuncs table = {};
    table.size = sizeof table;
    table.version = NP_VERSION_MAJOR << 8 | NP_VERSION_MINOR;
    table.memalloc = memAlloc;
    table.memfree = memFree;
    table.getvalue = getValue;
    table.setvalue = setValue;
    table.getstringidentifier = stringIdentifier;
    table.getintidentifier = intIdentifier;
    table.identifierisstring = isString;
    table.utf8fromidentifier = utf8Of;
    table.intfromidentifier = intOf;
    table.createobject = createObject;
    table.retainobject = retain;
    table.releaseobject = releaseObject;
    table.invoke = invoke;
    table.invokeDefault = invokeDefault;
    table.evaluate = evaluate;
    table.getproperty = getProperty;
    table.setproperty = setProperty;
    table.removeproperty = removeProperty;
    table.releasevariantvalue = releaseVariantValue;
    table.pluginthreadasynccall = asyncCall;
    return table;
}

} // namespace

NPNetscapeFuncs engineFunctions = makeTable();

} // namespace fake
