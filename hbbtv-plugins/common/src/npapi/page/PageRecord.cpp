#include "npapi/page/PageRecord.h"

#include "npapi/instance/AsyncCalls.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/page/PluginCalls.h"

#include <algorithm>
#include <stdio.h>
#include <string.h>

namespace {

NPVariant voidVariant() {
    NPVariant value;
    VOID_TO_NPVARIANT(value);
    return value;
}

NPVariant nullVariant() {
    NPVariant value;
    NULL_TO_NPVARIANT(value);
    return value;
}

/// @return a value that borrows the text
NPVariant textVariant(const char* text) {
    NPVariant value;
    STRINGN_TO_NPVARIANT(text, static_cast<uint32_t>(strlen(text)), value);
    return value;
}

bool areEqualTexts(const NPVariant& a, const NPVariant& b) {
    if (!NPVARIANT_IS_STRING(a) || !NPVARIANT_IS_STRING(b)) {
        return false;
    }
    const NPString& one = NPVARIANT_TO_STRING(a);
    const NPString& other = NPVARIANT_TO_STRING(b);
    return one.UTF8Length == other.UTF8Length &&
           std::equal(one.UTF8Characters, one.UTF8Characters + one.UTF8Length, other.UTF8Characters);
}

bool isNamed(NPIdentifier identifier, const char* name) {
    return name && identifier == NPN_GetStringIdentifier(name);
}

/// The name of a property of the element that keeps something.
struct ElementName {
    char text[128];

    ElementName(const char* beginning, const char* name) { snprintf(text, sizeof text, "%s%s", beginning, name); }
};

/// The properties and attributes of an instance's element, as long as the instance lives.
class Element {
public:
    explicit Element(const InstanceRef& instance) : m_instance(instance), m_object(instance.element()) {}

    ScriptValue read(const char* name) const { return m_instance.property(m_object, name); }
    void write(const char* name, const NPVariant& value) const { m_instance.setProperty(m_object, name, value); }
    void clear(const char* name) const { write(name, voidVariant()); }
    void remove(const char* name) const { m_instance.removeProperty(m_object, name); }

    /// @return true when script has set the property on this element
    bool owns(const char* name) const { return ask("hasOwnProperty", name).isTrue(); }

    /// @return an attribute's value, Null without one
    ScriptValue attribute(const char* name) const { return ask("getAttribute", name); }

    const InstanceRef& instance() const { return m_instance; }
    const ScriptObject& object() const { return m_object; }

private:
    ScriptValue ask(const char* method, const char* name) const {
        const NPVariant argument = textVariant(name);
        return m_instance.call(m_object, method, &argument, 1);
    }

    InstanceRef m_instance;
    ScriptObject m_object;
};

void applyProperty(const Element& element, const HbbTVElementNames& names, const char* name) {
    const ElementName kept(names.property, name);
    ScriptValue value = element.read(name);
    if (!NPVARIANT_IS_VOID(value.get()) && (!NPVARIANT_IS_NULL(value.get()) || element.owns(name))) {
        // Set while there was no instance; from now on the record has it. What the engine itself would call, such as
        // `onfocus`, cannot be removed but emptied.
        element.write(name, nullVariant());
        element.remove(name);
        element.write(kept.text, value.get());
    } else {
        value = element.read(kept.text);
    }
    if (!value.isNothing()) {
        writePlugin(element.instance(), NPN_GetStringIdentifier(name), value.get());
    }
}

void applySource(const Element& element, const HbbTVElementNames& names, const char* name) {
    const ElementName kept(names.property, name);
    const ScriptValue source = element.read(kept.text);
    const ScriptValue attribute = element.read(ElementName(names.attribute, name).text);
    if (!source.isString() || !attribute.isString()) {
        return;
    }
    const ScriptValue present = element.attribute(name);
    if (areEqualTexts(attribute.get(), present.isString() ? present.get() : textVariant(""))) {
        writePlugin(element.instance(), NPN_GetStringIdentifier(name), source.get());
    } else {
        element.clear(kept.text);
    }
}

void applyListener(const Element& element, const HbbTVElementNames& names, const char* type) {
    const ScriptValue listener = element.read(ElementName(names.listener, type).text);
    if (listener.isObject()) {
        const NPVariant args[2] = {textVariant(type), listener.get()};
        ScriptValue result;
        result.answered(invokePlugin(element.instance(), element.object(), NPN_GetStringIdentifier("addEventListener"),
                                     args, 2, result.result()));
    }
}

void settleRecordOf(void* npp) {
    settleRecord(InstanceRef::of(static_cast<NPP>(npp)));
}

} // namespace

void recordProperty(const InstanceRef& instance, NPIdentifier name, const NPVariant& value) {
    if (!instance) {
        return;
    }
    const HbbTVModule& module = instance.get()->module();
    const Element element(instance);
    for (const char* const* adopted = module.adoptedProperties; *adopted; ++adopted) {
        if (isNamed(name, *adopted)) {
            element.write(ElementName(module.elementNames.property, *adopted).text, value);
            return;
        }
    }
    const char* const source = module.sourceProperty;
    if (isNamed(name, source) && NPVARIANT_IS_STRING(value)) {
        const ScriptValue attribute = element.attribute(source);
        element.write(ElementName(module.elementNames.attribute, source).text,
                      attribute.isString() ? attribute.get() : textVariant(""));
        element.write(ElementName(module.elementNames.property, source).text, value);
    }
}

void recordListener(const InstanceRef& instance, NPIdentifier method, const NPVariant* args, uint32_t argCount) {
    // What the object refuses is not kept either.
    const bool wellFormed =
        argCount == 2 || (argCount == 3 && (NPVARIANT_IS_BOOLEAN(args[2]) || NPVARIANT_IS_NULL(args[2])));
    if (!instance || !wellFormed || !NPVARIANT_IS_STRING(args[0]) || !NPVARIANT_IS_OBJECT(args[1])) {
        return;
    }
    const bool added = isNamed(method, "addEventListener");
    if (!added && !isNamed(method, "removeEventListener")) {
        return;
    }
    const HbbTVModule& module = instance.get()->module();
    for (const HbbTVListenerProperty* entry = module.listenerProperties; entry->listener; ++entry) {
        if (areEqualTexts(args[0], textVariant(entry->listener))) {
            Element(instance).write(ElementName(module.elementNames.listener, entry->listener).text,
                                    added ? args[1] : voidVariant());
            return;
        }
    }
}

void settleRecord(const InstanceRef& instance) {
    if (!instance || instance.get()->recordState != PageRecordState::Pending) {
        return;
    }
    instance.get()->recordState = PageRecordState::Reading;
    const HbbTVModule& module = instance.get()->module();
    const Element element(instance);
    if (module.sourceProperty) {
        applySource(element, module.elementNames, module.sourceProperty);
    }
    for (const char* const* name = module.adoptedProperties; *name; ++name) {
        applyProperty(element, module.elementNames, *name);
    }
    for (const HbbTVListenerProperty* entry = module.listenerProperties; entry->listener; ++entry) {
        applyListener(element, module.elementNames, entry->listener);
    }
    if (PluginInstance* const live = instance.get()) {
        live->recordState = PageRecordState::Settled;
    }
}

void scheduleRecord(const InstanceRef& instance) {
    if (instance) {
        queueAsyncCall(instance.npp(), settleRecordOf, instance.npp());
    }
}
