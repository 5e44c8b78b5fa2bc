#include "fake_browser.h"

#include "allocations.h"
#include "journal.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <stdlib.h>
#include <string.h>

#define EXPECT_PLUGIN_THREAD() EXPECT_EQ(browser().pluginThread, std::this_thread::get_id()) << __func__

namespace fake {
namespace {

// An identifier is its name; that of an index begins with "#".
const std::string& nameOf(NPIdentifier identifier) {
    return *static_cast<std::string*>(identifier);
}

NPClass scriptClass;
NPClass bareClass;

ScriptObject* scriptObject(NPObject* object) {
    EXPECT_TRUE(browser().alive(object));
    return object->_class == &scriptClass ? static_cast<ScriptObject*>(object) : nullptr;
}

std::string list(const NPVariant* values, uint32_t count) {
    std::string all;
    for (uint32_t i = 0; i < count; ++i) {
        all += (i ? "," : "") + text(values[i]);
    }
    return "(" + all + ")";
}

// What a failed call leaves in its result must not be used: this would crash.
bool fail(NPVariant* result) {
    OBJECT_TO_NPVARIANT(reinterpret_cast<NPObject*>(16), *result);
    return false;
}

bool answer(const Value& value, NPVariant* result) {
    value.give(result);
    return true;
}

void* allocate(size_t size) {
    EXPECT_PLUGIN_THREAD();
    return const_cast<void*>(*browser().blocks.insert(::malloc(size)).first);
}

} // namespace

Value::Value(const std::string& text) : m_text(std::make_shared<std::vector<char>>(text.begin(), text.end())) {
    STRINGN_TO_NPVARIANT(m_text->data(), m_text->size(), m_variant);
}

void Value::give(NPVariant* result) const {
    *result = m_variant;
    if (NPVARIANT_IS_OBJECT(m_variant)) {
        NPN_RetainObject(NPVARIANT_TO_OBJECT(m_variant));
    } else if (NPVARIANT_IS_STRING(m_variant)) {
        char* copy = static_cast<char*>(allocate(m_text->size()));
        std::copy(m_text->begin(), m_text->end(), copy);
        STRINGN_TO_NPVARIANT(copy, m_text->size(), *result);
    }
}

std::string text(const NPVariant& value) {
    char number[32];
    switch (value.type) {
    case NPVariantType_Void:
        return "undefined";
    case NPVariantType_Null:
        return "null";
    case NPVariantType_Bool:
        return NPVARIANT_TO_BOOLEAN(value) ? "true" : "false";
    case NPVariantType_Int32:
        return std::to_string(NPVARIANT_TO_INT32(value));
    case NPVariantType_Double:
        snprintf(number, sizeof number, "%.12g", NPVARIANT_TO_DOUBLE(value));
        return strpbrk(number, ".en") ? number : std::string(number) + ".0";
    case NPVariantType_String:
        return "\"" + std::string(value.value.stringValue.UTF8Characters, value.value.stringValue.UTF8Length) + "\"";
    case NPVariantType_Object:
        break;
    }
    NPObject* object = NPVARIANT_TO_OBJECT(value);
    if (const ScriptObject* own = scriptObject(object)) {
        return "[" + own->name + "]";
    }
    std::string values;
    for (const char* name : {"position", "speed", "componentType", "state"}) {
        NPVariant part;
        if (!object->_class->getProperty || !object->_class->getProperty(object, identifier(name), &part)) {
            return "[object]";
        }
        values += (values.empty() ? "" : ",") + text(part);
    }
    return "event{" + values + "}";
}

std::string taken(NPVariant given) {
    const std::string value = text(given);
    NPN_ReleaseVariantValue(&given);
    return value;
}

NPIdentifier identifier(const std::string& name) {
    static std::set<std::string> names;
    return const_cast<std::string*>(&*names.insert(name).first);
}

Browser& browser() {
    static Browser instance;
    return instance;
}

void Browser::reset() {
    pluginThread = std::this_thread::get_id();
    scriptClass.allocate = [](NPP, NPClass*) -> NPObject* { return new ScriptObject(); };
    scriptClass.deallocate = [](NPObject* object) { delete static_cast<ScriptObject*>(object); };
    objects = Gives;
    window = object("window");
    document = object("document");
    location = object("location");
    element = object("element");
    domEvent = object("dom event");
    location->properties["href"] = "http://tv.example/app/index.html";
    window->properties["location"] = Value(location);
    window->properties["document"] = Value(document);
    document->methods["createEvent"] = [this](auto...) { return Value(domEvent); };
    domEvent->methods["initEvent"] = [](auto...) { return Value(); };
    element->methods["dispatchEvent"] = [](auto...) { return Value(true); };
    element->methods["setAttribute"] = [](auto...) { return Value("text to be released"); };
}

void Browser::finish() {
    deliver();
    for (NPObject* owned : pageOwned) {
        EXPECT_EQ(1u, owned->referenceCount) << text(Value(owned)) << " has references left";
        NPN_ReleaseObject(owned);
    }
    EXPECT_EQ(0u, live.size()) << "script objects that nobody released";
    EXPECT_EQ(0u, blocks.size()) << "blocks of NPN_MemAlloc that nobody freed";
    pageOwned.clear();
    live.clear();
    blocks.clear();
}

ScriptObject* Browser::object(const std::string& name) {
    ScriptObject* made = static_cast<ScriptObject*>(NPN_CreateObject(nullptr, &scriptClass));
    made->name = name;
    pageOwned.push_back(made);
    return made;
}

ScriptObject* Browser::function(const std::string& name, const std::function<void()>& body) {
    ScriptObject* made = object(name);
    made->call = [name, body](const NPVariant* args, uint32_t count) {
        note(name + list(args, count));
        if (body) {
            body();
        }
        return Value(name + " has returned"); // uses a capture: the function must be alive still
    };
    return made;
}

NPObject* Browser::bareObject() {
    pageOwned.push_back(NPN_CreateObject(nullptr, &bareClass));
    return pageOwned.back();
}

void Browser::drop(NPObject* object) {
    pageOwned.erase(std::find(pageOwned.begin(), pageOwned.end(), object));
    NPN_ReleaseObject(object);
}

size_t Browser::queued() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return calls.size();
}

bool Browser::alive(const NPObject* object) const {
    // A plug-in may hand out a block of its own as an object, as long as it begins like one.
    return live.count(object) > 0 || blocks.count(object) > 0;
}

void Browser::deliver() {
    while (queued() > 0) {
        std::unique_lock<std::mutex> lock(mutex);
        const std::function<void()> next = calls.front();
        calls.pop_front();
        lock.unlock();
        next();
    }
}

} // namespace fake

using fake::browser;
using fake::ScriptObject;
using fake::scriptObject;

extern "C" {

void* NPN_MemAlloc(uint32_t size) {
    return fake::allocationFails() ? nullptr : fake::allocate(size);
}

void NPN_MemFree(void* ptr) {
    EXPECT_PLUGIN_THREAD();
    if (ptr) {
        ASSERT_EQ(1u, browser().blocks.erase(ptr)) << "NPN_MemFree of what NPN_MemAlloc did not give";
        ::free(ptr);
    }
}

void NPN_PluginThreadAsyncCall(NPP, void (*func)(void*), void* userData) {
    const std::lock_guard<std::mutex> lock(browser().mutex);
    browser().calls.push_back([=] { func(userData); });
}

NPError NPN_GetValue(NPP, NPNVariable variable, void* value) {
    EXPECT_PLUGIN_THREAD();
    if (variable != NPNVWindowNPObject && variable != NPNVPluginElementNPObject) {
        return NPERR_INVALID_PARAM;
    }
    NPObject* given = variable == NPNVWindowNPObject ? browser().window : browser().element;
    *static_cast<NPObject**>(value) = browser().objects == fake::Browser::Gives ? NPN_RetainObject(given) : nullptr;
    return browser().objects == fake::Browser::Refuses ? NPERR_GENERIC_ERROR : NPERR_NO_ERROR;
}

NPIdentifier NPN_GetStringIdentifier(const NPUTF8* name) {
    return fake::identifier(name);
}

NPIdentifier NPN_GetIntIdentifier(int32_t intid) {
    return fake::identifier("#" + std::to_string(intid));
}

bool NPN_IdentifierIsString(NPIdentifier identifier) {
    return fake::nameOf(identifier).compare(0, 1, "#") != 0;
}

int32_t NPN_IntFromIdentifier(NPIdentifier identifier) {
    return std::stoi(fake::nameOf(identifier).substr(1));
}

NPUTF8* NPN_UTF8FromIdentifier(NPIdentifier identifier) {
    const std::string& text = fake::nameOf(identifier);
    void* copy = NPN_MemAlloc(static_cast<uint32_t>(text.size() + 1));
    return static_cast<NPUTF8*>(copy ? memcpy(copy, text.c_str(), text.size() + 1) : nullptr);
}

NPObject* NPN_CreateObject(NPP npp, NPClass* aClass) {
    EXPECT_PLUGIN_THREAD();
    NPObject* made = static_cast<NPObject*>(aClass->allocate ? aClass->allocate(npp, aClass) : malloc(sizeof *made));
    if (made) {
        made->_class = aClass;
        made->referenceCount = 1;
        browser().live.insert(made);
    }
    return made;
}

NPObject* NPN_RetainObject(NPObject* obj) {
    EXPECT_PLUGIN_THREAD();
    if (obj) {
        EXPECT_TRUE(browser().alive(obj)) << "reference to an object that is gone";
        ++obj->referenceCount;
    }
    return obj;
}

void NPN_ReleaseObject(NPObject* obj) {
    EXPECT_PLUGIN_THREAD();
    if (!obj) {
        return;
    }
    ASSERT_TRUE(browser().alive(obj)) << "release of an object that is gone";
    if (--obj->referenceCount > 0) {
        return;
    }
    browser().live.erase(obj);
    if (obj->_class->deallocate) {
        obj->_class->deallocate(obj);
    } else if (obj->_class->allocate) {
        NPN_MemFree(obj); // as an engine frees what an allocate function without its counterpart made
    } else {
        free(obj);
    }
}

void NPN_ReleaseVariantValue(NPVariant* variant) {
    if (NPVARIANT_IS_STRING(*variant)) {
        NPN_MemFree(const_cast<char*>(NPVARIANT_TO_STRING(*variant).UTF8Characters));
    } else if (NPVARIANT_IS_OBJECT(*variant)) {
        NPN_ReleaseObject(NPVARIANT_TO_OBJECT(*variant));
    }
    VOID_TO_NPVARIANT(*variant);
}

bool NPN_Invoke(NPP, NPObject* npobj, NPIdentifier methodName, const NPVariant* args, uint32_t argCount,
                NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    ScriptObject* object = scriptObject(npobj);
    const std::string& name = fake::nameOf(methodName);
    if (!object || !object->methods.count(name)) {
        return fake::fail(result);
    }
    fake::note(object->name + "." + name + fake::list(args, argCount));
    return fake::answer(object->methods[name](args, argCount), result);
}

bool NPN_InvokeDefault(NPP, NPObject* npobj, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    ScriptObject* object = scriptObject(npobj);
    return object && object->call ? fake::answer(object->call(args, argCount), result) : fake::fail(result);
}

bool NPN_GetProperty(NPP, NPObject* npobj, NPIdentifier propertyName, NPVariant* result) {
    EXPECT_PLUGIN_THREAD();
    ScriptObject* object = scriptObject(npobj);
    const std::string& name = fake::nameOf(propertyName);
    return object && object->properties.count(name) ? fake::answer(object->properties[name], result)
                                                    : fake::fail(result);
}
}
