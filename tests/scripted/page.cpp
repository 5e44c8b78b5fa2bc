#include "page.h"

#include "PluginBaseClass.h"

#include "journal.h"
#include "script_objects.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fake {
namespace {

/// What a function of the framework does, by the names of its parameters. The page tests run them in a real engine.
Value runFrameworkFunction(const std::string& parameters, const NPVariant* args, uint32_t count) {
    if (parameters == "page, element") {
        ScriptObject* function = static_cast<ScriptObject*>(NPVARIANT_TO_OBJECT(args[0]));
        function->calledOn = NPVARIANT_TO_OBJECT(args[1]);
        return function->call(args + 2, count - 2);
    }
    EXPECT_EQ("collection", parameters) << "a script that the scripted engine does not know";
    ScriptObject* array = browser().object("array");
    NPVariant item;
    for (int i = 0; readProperty(NPVARIANT_TO_OBJECT(args[0]), identifier("#" + std::to_string(i)), &item); ++i) {
        array->properties[std::to_string(i)] = Value::copyOf(item);
        array->held.push_back(NPVARIANT_TO_OBJECT(item));
    }
    return array;
}

Value makeFunction(const std::string& parameters) {
    ScriptObject* function = browser().object("function(" + parameters + ")");
    function->call = [parameters](const NPVariant* args, uint32_t count) {
        return runFrameworkFunction(parameters, args, count);
    };
    return function;
}

NPWindow windowAt(int x, int y, unsigned width, unsigned height) {
    return {nullptr, x, y, width, height, {}, nullptr, NPWindowTypeDrawable};
}

} // namespace

Element::Element(const Attributes& attributes)
    : m_object(browser().object("element")), m_attributes(attributes), m_beingMade(false),
      m_window(windowAt(0, 0, 640, 360)) {
    m_object->properties["nodeName"] = "OBJECT";
    m_object->properties["ownerDocument"] = browser().document;
    m_object->front = [this] { return scriptable(); };
    m_object->methods["getAttribute"] = [this](const NPVariant* args, uint32_t) {
        const auto found = m_attributes.find(textIn(args[0]));
        return found == m_attributes.end() ? Value(nullptr) : Value(found->second);
    };
    m_object->methods["setAttribute"] = [this](const NPVariant* args, uint32_t) {
        m_attributes[textIn(args[0])] = textIn(args[1]);
        return Value();
    };
    m_object->methods["hasOwnProperty"] = [this](const NPVariant* args, uint32_t) {
        return Value(m_object->properties.count(textIn(args[0])) > 0);
    };
    m_object->methods["dispatchEvent"] = [](auto...) { return Value(true); };
    m_object->methods["getBoundingClientRect"] = [this](auto...) {
        ScriptObject* rectangle = browser().object("rectangle");
        rectangle->properties = {{"left", m_window.x}, {"top", m_window.y}};
        return Value(rectangle);
    };
    layOut(0, 0, 640, 360);
}

Element::~Element() {
    m_beingMade = false;
    hide();
    m_object->front = nullptr;
    m_object->methods.clear();
}

void Element::show() {
    if (m_handle) {
        return;
    }
    m_handle = std::make_unique<Handle>();
    m_handle->ndata = static_cast<NPObject*>(m_object);
    std::vector<char*> names;
    std::vector<char*> values;
    for (auto& [name, value] : m_attributes) {
        names.push_back(const_cast<char*>(name.c_str()));
        values.push_back(value.data());
    }
    m_beingMade = true;
    char type[] = "video/mp4";
    const NPError made = pluginFunctions().newp(type, m_handle.get(), NP_EMBED, static_cast<int16_t>(names.size()),
                                                names.data(), values.data(), nullptr);
    m_beingMade = false;
    if (made != NPERR_NO_ERROR) {
        browser().forget(m_handle.get());
        m_handle.reset();
        return;
    }
    layOut(m_window.x, m_window.y, m_window.width, m_window.height);
}

void Element::hide() {
    if (!m_handle || m_beingMade) {
        return;
    }
    // From now on script finds no instance, whatever the destruction runs.
    const std::unique_ptr<Handle> going = std::move(m_handle);
    pluginFunctions().destroy(going.get(), nullptr);
    browser().forget(going.get());
}

void Element::layOut(int x, int y, unsigned width, unsigned height) {
    m_window = windowAt(x, y, width, height);
    m_object->properties["clientWidth"] = static_cast<int>(width);
    m_object->properties["clientHeight"] = static_cast<int>(height);
    if (m_handle && !m_beingMade) {
        m_handle->window = m_window;
        pluginFunctions().setwindow(m_handle.get(), &m_handle->window);
    }
}

void Element::paint() {
    if (m_handle && !m_beingMade) {
        int graphicsExpose[24] = {13};
        pluginFunctions().event(m_handle.get(), graphicsExpose);
    }
}

std::string Element::parameters() {
    std::string list;
    for (const auto& [name, value] : m_attributes) {
        list += "attribute " + name + "=" + value + "\n";
    }
    PluginBaseClass* plugin = m_handle ? pluginBehind(m_handle.get()) : nullptr;
    for (const char* name : {"id", "type", "data", "width", "height", "style", "cache", "loop", "subtitles"}) {
        char value[HBBTV_PARAM_VALUE_SIZE] = "";
        if (plugin && plugin->getParam(const_cast<char*>(name), value)) {
            list += std::string("parameter ") + name + "=" + value + "\n";
        }
    }
    return list;
}

NPObject* Element::scriptable() {
    NPObject* object = nullptr;
    if (m_handle && !m_beingMade) {
        pluginFunctions().getvalue(m_handle.get(), NPPVpluginScriptableNPObject, &object);
    }
    return object;
}

std::string Element::get(const std::string& name) {
    NPVariant result;
    VOID_TO_NPVARIANT(result);
    return readProperty(m_object, identifier(name), &result) ? taken(result) : "(none)";
}

bool Element::set(const std::string& name, const Value& value) {
    return writeProperty(m_object, identifier(name), value.variant());
}

std::string Element::call(const std::string& name, const Arguments& arguments) {
    NPVariant result;
    return call(name, arguments, &result) ? taken(result) : "(none)";
}

bool Element::call(const std::string& name, const Arguments& arguments, NPVariant* result) {
    std::vector<NPVariant> variants;
    for (const Value& argument : arguments) {
        variants.push_back(argument.variant());
    }
    VOID_TO_NPVARIANT(*result);
    return callMethod(m_object, identifier(name), variants.data(), static_cast<uint32_t>(variants.size()), result);
}

void completePage() {
    ScriptObject* constructor = browser().object("Function");
    constructor->call = [](const NPVariant* args, uint32_t) { return makeFunction(textIn(args[0])); };
    ScriptObject* window = browser().window;
    window->properties["Function"] = constructor;
    window->properties["parent"] = window;
    window->properties["frameElement"] = nullptr;
    window->methods["eval"] = [](const NPVariant* args, uint32_t) {
        const std::string source = textIn(args[0]);
        const size_t start = source.find('(', 1) + 1;
        return makeFunction(source.substr(start, source.find(')') - start));
    };
    // What script has of the window does not go with the frame.
    ScriptObject* view = browser().object("window");
    view->properties = window->properties;
    view->properties["parent"] = view;
    view->methods = window->methods;
    browser().document->properties["defaultView"] = view;
}

void forbidFunctionConstructor() {
    browser().window->properties["Function"] = nullptr;
    const Value& view = browser().document->properties.at("defaultView");
    static_cast<ScriptObject*>(NPVARIANT_TO_OBJECT(view.variant()))->properties["Function"] = nullptr;
}

} // namespace fake
