#include "fake_browser.h"

#include "journal.h"
#include "script_objects.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include <stdlib.h>
#include <string.h>

namespace fake {
std::string textOf(const NPVariant* values, uint32_t count) {
    std::string all;
    for (uint32_t i = 0; i < count; ++i) {
        all += (i ? "," : "") + text(values[i]);
    }
    return "(" + all + ")";
}

NPClass scriptClass;
NPClass bareClass;

std::string textIn(const NPVariant& value) {
    if (!NPVARIANT_IS_STRING(value)) {
        return text(value);
    }
    const NPString& string = NPVARIANT_TO_STRING(value);
    return string.UTF8Length > 0 ? std::string(string.UTF8Characters, string.UTF8Length) : std::string();
}

Value::Value(const std::string& text) : m_text(std::make_shared<std::vector<char>>(text.begin(), text.end())) {
    STRINGN_TO_NPVARIANT(m_text->data(), m_text->size(), m_variant);
}

Value Value::copyOf(const NPVariant& value) {
    if (NPVARIANT_IS_STRING(value)) {
        return textIn(value);
    }
    Value copy;
    copy.m_variant = value;
    return copy;
}

void Value::give(NPVariant* result) const {
    *result = m_variant;
    if (NPVARIANT_IS_OBJECT(m_variant)) {
        retain(NPVARIANT_TO_OBJECT(m_variant));
    } else if (NPVARIANT_IS_STRING(m_variant)) {
        char* copy = static_cast<char*>(newBlock(m_text->size()));
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
        return "\"" + textIn(value) + "\"";
    case NPVariantType_Object:
        break;
    }
    NPObject* object = NPVARIANT_TO_OBJECT(value);
    if (!object) {
        return "[null]";
    }
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
    releaseValue(&given);
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
    leavesGarbage = true;
    forgetsCalls = false;
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
        if (ScriptObject* own = scriptObject(owned)) {
            for (NPObject* other : std::exchange(own->held, {})) {
                release(other);
            }
        }
    }
    for (NPObject* owned : pageOwned) {
        EXPECT_EQ(1u, owned->referenceCount) << text(Value(owned)) << " has references left";
        release(owned);
    }
    EXPECT_EQ(0u, live.size()) << "script objects that nobody released";
    EXPECT_EQ(0u, blocks.size()) << "blocks of NPN_MemAlloc that nobody freed";
    pageOwned.clear();
    live.clear();
    blocks.clear();
}

ScriptObject* Browser::object(const std::string& name) {
    ScriptObject* made = static_cast<ScriptObject*>(makeObject(nullptr, &scriptClass));
    made->name = name;
    pageOwned.push_back(made);
    return made;
}

ScriptObject* Browser::function(const std::string& name, const std::function<void()>& body) {
    ScriptObject* made = object(name);
    made->call = [name, body](const NPVariant* args, uint32_t count) {
        note(name + textOf(args, count));
        if (body) {
            body();
        }
        return Value(name + " has returned"); // uses a capture: the function must be alive still
    };
    return made;
}

NPObject* Browser::bareObject() {
    pageOwned.push_back(makeObject(nullptr, &bareClass));
    return pageOwned.back();
}

void Browser::drop(NPObject* object) {
    pageOwned.erase(std::find(pageOwned.begin(), pageOwned.end(), object));
    release(object);
}

size_t Browser::queued() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return calls.size();
}

bool Browser::alive(const NPObject* object) const {
    // A plug-in may hand out a block of its own as an object, as long as it begins like one.
    return live.count(object) > 0 || blocks.count(object) > 0;
}

void Browser::dropWindow() {
    pageOwned.erase(std::find(pageOwned.begin(), pageOwned.end(), window));
    live.erase(window);
    delete std::exchange(window, nullptr);
}

void Browser::deliver() {
    while (deliverOne()) {}
}

bool Browser::deliverOne() {
    std::unique_lock<std::mutex> lock(mutex);
    if (calls.empty()) {
        return false;
    }
    const Call next = calls.front();
    calls.pop_front();
    lock.unlock();
    next.function(next.data);
    return true;
}

void Browser::forget(NPP handle) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (forgetsCalls) {
        calls.erase(std::remove_if(calls.begin(), calls.end(), [=](const Call& call) { return call.handle == handle; }),
                    calls.end());
    }
}

} // namespace fake
