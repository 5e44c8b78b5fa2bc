#include "script_objects.h"

#include <stdlib.h>

namespace fake {

ScriptObject* scriptObject(NPObject* object) {
    EXPECT_TRUE(browser().alive(object));
    return object->_class == &scriptClass ? static_cast<ScriptObject*>(object) : nullptr;
}

const std::string& nameOf(NPIdentifier identifier) {
    static const std::string none = "(none)"; // what an engine without memory may give
    return identifier ? *static_cast<std::string*>(identifier) : none;
}

void* newBlock(size_t size) {
    EXPECT_PLUGIN_THREAD();
    return const_cast<void*>(*browser().blocks.insert(::malloc(size)).first);
}

void freeBlock(void* block) {
    EXPECT_PLUGIN_THREAD();
    if (block) {
        ASSERT_EQ(1u, browser().blocks.erase(block)) << "NPN_MemFree of what NPN_MemAlloc did not give";
        ::free(block);
    }
}

NPObject* makeObject(NPP handle, NPClass* aClass) {
    EXPECT_PLUGIN_THREAD();
    NPObject* made = static_cast<NPObject*>(aClass->allocate ? aClass->allocate(handle, aClass) : malloc(sizeof *made));
    if (made) {
        made->_class = aClass;
        made->referenceCount = 1;
        browser().live.insert(made);
    }
    return made;
}

NPObject* retain(NPObject* object) {
    EXPECT_PLUGIN_THREAD();
    if (object) {
        EXPECT_TRUE(browser().alive(object)) << "reference to an object that is gone";
        ++object->referenceCount;
    }
    return object;
}

void release(NPObject* object) {
    EXPECT_PLUGIN_THREAD();
    if (!object) {
        return;
    }
    ASSERT_TRUE(browser().alive(object)) << "release of an object that is gone";
    if (--object->referenceCount > 0) {
        return;
    }
    browser().live.erase(object);
    if (object->_class->deallocate) {
        object->_class->deallocate(object);
    } else if (object->_class->allocate) {
        freeBlock(object); // as an engine frees what an allocate function without its counterpart made
    } else {
        free(object);
    }
}

void releaseValue(NPVariant* value) {
    if (NPVARIANT_IS_STRING(*value)) {
        freeBlock(const_cast<char*>(NPVARIANT_TO_STRING(*value).UTF8Characters));
    } else if (NPVARIANT_IS_OBJECT(*value)) {
        release(NPVARIANT_TO_OBJECT(*value));
    }
    VOID_TO_NPVARIANT(*value);
}

namespace {

/// The object that answers for a name: the one in front if it knows the name. Held while it answers.
class Answering {
public:
    Answering(NPObject* object, bool (*knows)(const NPClass&, NPObject*, NPIdentifier), NPIdentifier name)
        : m_object(retain(object)) {
        ScriptObject* own = scriptObject(object);
        NPObject* front = own && own->front ? own->front() : nullptr;
        if (front && knows(*front->_class, front, name)) {
            std::swap(front, m_object);
        }
        release(front);
    }
    ~Answering() { release(m_object); }
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

    /// @return the page's own object; null for one of a plug-in
    ScriptObject* own() const { return scriptObject(m_object); }
    NPObject* object() const { return m_object; }
    const NPClass& type() const { return *m_object->_class; }

private:
    NPObject* m_object;
};

bool knowsProperty(const NPClass& type, NPObject* object, NPIdentifier name) {
    return type.hasProperty && type.hasProperty(object, name);
}

bool knowsMethod(const NPClass& type, NPObject* object, NPIdentifier name) {
    return type.hasMethod && type.hasMethod(object, name);
}

} // namespace

bool readProperty(NPObject* object, NPIdentifier name, NPVariant* result) {
    const Answering answering(object, knowsProperty, name);
    if (ScriptObject* own = answering.own()) {
        const auto found = own->properties.find(nameOf(name));
        if (!own->answers || found == own->properties.end()) {
            return false;
        }
        found->second.give(result);
        return true;
    }
    return knowsProperty(answering.type(), answering.object(), name) &&
           answering.type().getProperty(answering.object(), name, result);
}

bool writeProperty(NPObject* object, NPIdentifier name, const NPVariant& value) {
    const Answering answering(object, knowsProperty, name);
    ScriptObject* own = answering.own();
    if (!own) {
        return answering.type().setProperty && answering.type().setProperty(answering.object(), name, &value);
    }
    if (NPVARIANT_IS_OBJECT(value)) {
        own->held.push_back(retain(NPVARIANT_TO_OBJECT(value)));
    }
    own->properties[nameOf(name)] = Value::copyOf(value);
    return own->answers;
}

bool callMethod(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t count, NPVariant* result) {
    const Answering answering(object, knowsMethod, name);
    if (ScriptObject* own = answering.own()) {
        const auto found = own->methods.find(nameOf(name));
        if (!own->answers || found == own->methods.end()) {
            return false;
        }
        const Function method = found->second;
        method(args, count).give(result);
        return true;
    }
    return knowsMethod(answering.type(), answering.object(), name) &&
           answering.type().invoke(answering.object(), name, args, count, result);
}

} // namespace fake
