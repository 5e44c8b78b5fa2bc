/**
 * A page on the scripted engine: elements that the engine gives instances of the plug-in, as it inserts, hides, shows
 * and removes them, and the page's accesses to them. Programs choose what is behind the instances by linking.
 */
#ifndef PAGE_H
#define PAGE_H

#include "fake_browser.h"

#include "npapi/npfunctions.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class PluginBaseClass;

namespace fake {

/** @return what the engine calls: the module's functions, or those of a television's own framework */
const NPPluginFuncs& pluginFunctions();

/** @return the plug-in behind an instance; null where a framework keeps it to itself */
PluginBaseClass* pluginBehind(NPP handle);

/** An `<object>` element. The page holds its script object until it goes. */
class Element {
public:
    using Attributes = std::map<std::string, std::string>;
    explicit Element(const Attributes& attributes);
    ~Element();
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    /** Puts the element into the document and lays it out: makes the instance. Nothing when it has one. */
    void show();

    /** Takes the element out of the layout: ends the instance. Not while the engine makes it. */
    void hide();

    /** Lays the element out at another rectangle. */
    void layOut(int x, int y, unsigned width, unsigned height);

    /** Calls the instance as the engine does: GraphicsExpose, value of the script object. */
    void paint();

    bool hasInstance() const { return m_handle != nullptr; }
    ScriptObject* object() { return m_object; }

    /** @return the attributes, and the parameters as the plug-in has them */
    std::string parameters();

    // As script does: text of the value, "(none)" when there is none or the access fails.
    std::string get(const std::string& name);
    bool set(const std::string& name, const Value& value);
    std::string call(const std::string& name, const Arguments& arguments = {});

    /** As call; the value is the caller's. */
    bool call(const std::string& name, const Arguments& arguments, NPVariant* result);

private:
    struct Handle : NPP_t {
        NPWindow window;
    };

    NPObject* scriptable();

    ScriptObject* m_object;
    Attributes m_attributes;
    std::unique_ptr<Handle> m_handle; ///< freed with the instance
    bool m_beingMade;
    NPWindow m_window;
};

/** Adds to the browser's page what only the module asks for: constructors of functions, and the window's frame. */
void completePage();

/** The page's content security policy forbids the constructor of functions. */
void forbidFunctionConstructor();

} // namespace fake

#endif
