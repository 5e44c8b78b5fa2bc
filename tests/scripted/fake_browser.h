/**
 * The scripted browser: script values, script objects and an engine's functions over them. It checks on the way what a
 * real engine relies on: the thread, live objects and handles, memory given back once. Calls that the plug-in makes of
 * the page are noted in the journal.
 */
#ifndef FAKE_BROWSER_H
#define FAKE_BROWSER_H

#include "npapi/npfunctions.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace fake {

/** A script value for arguments and answers. Text is kept without a terminator, in a block of exactly its length. */
class Value {
public:
    Value() { VOID_TO_NPVARIANT(m_variant); }
    Value(std::nullptr_t) { NULL_TO_NPVARIANT(m_variant); }
    Value(bool truth) { BOOLEAN_TO_NPVARIANT(truth, m_variant); }
    Value(int number) { INT32_TO_NPVARIANT(number, m_variant); }
    Value(double number) { DOUBLE_TO_NPVARIANT(number, m_variant); }
    Value(NPObject* object) { OBJECT_TO_NPVARIANT(object, m_variant); }
    Value(const char* text) : Value(std::string(text)) {}
    Value(const std::string& text);

    /** @return a value of the plug-in's; an object is not held */
    static Value copyOf(const NPVariant& value);

    /** The value, which stays this object's. */
    const NPVariant& variant() const { return m_variant; }

    /** Gives a copy to a receiver of the browser, who releases it. */
    void give(NPVariant* result) const;

private:
    NPVariant m_variant;
    std::shared_ptr<std::vector<char>> m_text;
};

using Arguments = std::vector<Value>;
using Function = std::function<Value(const NPVariant* arguments, uint32_t count)>;

/**
 * @return a value as a page's author would write it: 3 for an Int32, 3.0 for a Double, "text", null, undefined, [name]
 *         for an object of the page, event{position,speed,componentType,state} for the plug-in's event object
 */
std::string text(const NPVariant& value);
inline std::string text(const Value& value) {
    return text(value.variant());
}

/** @return a value that the receiver was given, as text; the value is released */
std::string taken(NPVariant given);

/** @return the interned identifier of a name */
NPIdentifier identifier(const std::string& name);

/** An object of the page. */
struct ScriptObject : NPObject {
    std::string name;
    std::map<std::string, Value> properties;
    std::map<std::string, Function> methods;
    Function call;                    /**< the object's body when it is a function */
    std::function<NPObject*()> front; /**< gives the object that answers first, with a reference; null for none */
    std::vector<NPObject*> held;      /**< objects that this one has a reference to until the page goes */
    NPObject* calledOn = nullptr;     /**< `this` of the function's last call */
    bool answers = true;              /**< else every access to it fails, as when its frame has gone */
};

/** Accesses as script makes them. @param result receives a value that is the caller's. @return false: no such name */
bool readProperty(NPObject* object, NPIdentifier name, NPVariant* result);
bool writeProperty(NPObject* object, NPIdentifier name, const NPVariant& value);
bool callMethod(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t count, NPVariant* result);

/** The engine's functions, as it passes them to a module. */
extern NPNetscapeFuncs engineFunctions;

struct Browser {
    enum Answer { Gives, Refuses, GivesNull };

    ScriptObject* window;
    ScriptObject* document;
    ScriptObject* location;
    ScriptObject* element;
    ScriptObject* domEvent; /**< what document.createEvent gives */
    Answer objects;         /**< how NPN_GetValue answers for window and element */
    bool leavesGarbage;     /**< what a failed call leaves in its result must not be used; else it is undefined */
    bool forgetsCalls;      /**< the engine forgets the queued calls of an instance that it ends */

    /** A new page at http://tv.example/app/index.html; this thread becomes the plug-in thread. */
    void reset();

    /** Delivers what is queued, lets the page go, and checks that everything has been given back exactly once. */
    void finish();

    /** @return a new object of the page, which keeps one reference until finish */
    ScriptObject* object(const std::string& name);

    /** @return a new function of the page; calls are noted as name(arguments) before `body` runs */
    ScriptObject* function(const std::string& name, const std::function<void()>& body = nullptr);

    /** @return a new object of the page in a block of exactly sizeof(NPObject) */
    NPObject* bareObject();

    /** The page gives its reference up. */
    void drop(NPObject* object);

    /** The frame's window goes, whatever references are left to it. */
    void dropWindow();

    /** Delivers the queued calls, and those that they queue, in order. */
    void deliver();

    /** Delivers the first queued call. @return false when there is none */
    bool deliverOne();

    /** An instance has gone. */
    void forget(NPP handle);

    size_t queued() const;
    bool alive(const NPObject* object) const;

    // What the NPN_ functions keep.
    mutable std::mutex mutex;
    struct Call {
        NPP handle;
        void (*function)(void*);
        void* data;
    };
    std::deque<Call> calls; /**< any thread, under the mutex */
    std::set<const void*> blocks;
    std::set<const NPObject*> live;
    std::vector<NPObject*> pageOwned;
    std::thread::id pluginThread;
};

Browser& browser();

} // namespace fake

#endif
