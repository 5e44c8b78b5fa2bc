#include "npapi/page/PageRecord.h"

#include "npapi/engine/BrowserFunctions.h"
#include "npapi/instance/PluginInstance.h"
#include "npapi/page/PageFunction.h"
#include "npapi/page/PluginScriptObject.h"

namespace {

constexpr char DATA[] = "data";

/// @return a value that points into `text`
NPVariant textVariant(const std::string& text) {
    NPVariant value;
    STRINGN_TO_NPVARIANT(text.c_str(), static_cast<uint32_t>(text.size()), value);
    return value;
}

NPVariant textVariant(std::string&& text) = delete;

std::string textOf(const NPVariant& value) {
    const NPString& text = NPVARIANT_TO_STRING(value);
    return std::string(text.UTF8Characters, text.UTF8Length);
}

/// The instance's element, held while a function looks at it.
class Element {
public:
    explicit Element(NPP npp) : m_npp(npp), m_object(nullptr) {
        if (NPN_GetValue(npp, NPNVPluginElementNPObject, &m_object) != NPERR_NO_ERROR) {
            m_object = nullptr;
        }
    }
    ~Element() { NPN_ReleaseObject(m_object); }
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    /// @return a property, to be released by the caller; Void when there is none
    NPVariant read(const std::string& name) const {
        NPVariant value;
        VOID_TO_NPVARIANT(value);
        if (m_object) {
            NPN_GetProperty(m_npp, m_object, NPN_GetStringIdentifier(name.c_str()), &value);
        }
        return value;
    }

    void write(const std::string& name, const NPVariant& value) const {
        if (m_object) {
            NPN_SetProperty(m_npp, m_object, NPN_GetStringIdentifier(name.c_str()), &value);
        }
    }

    void clear(const std::string& name) const {
        NPVariant nothing;
        VOID_TO_NPVARIANT(nothing);
        write(name, nothing);
    }

    void remove(const std::string& name) const {
        if (m_object && browserFunctions().removeproperty) {
            browserFunctions().removeproperty(m_npp, m_object, NPN_GetStringIdentifier(name.c_str()));
        }
    }

    /// @return true when script has set the property on this element
    bool owns(const std::string& name) const {
        NPVariant answer = ask("hasOwnProperty", name);
        const bool owned = NPVARIANT_IS_BOOLEAN(answer) && NPVARIANT_TO_BOOLEAN(answer);
        NPN_ReleaseVariantValue(&answer);
        return owned;
    }

    /// @return an attribute's value, empty without one
    std::string attribute(const std::string& name) const {
        NPVariant answer = ask("getAttribute", name);
        const std::string value = NPVARIANT_IS_STRING(answer) ? textOf(answer) : std::string();
        NPN_ReleaseVariantValue(&answer);
        return value;
    }

    NPObject* object() const { return m_object; }

private:
    NPVariant ask(const char* method, const std::string& name) const {
        const NPVariant argument = textVariant(name);
        NPVariant answer;
        VOID_TO_NPVARIANT(answer);
        if (m_object) {
            NPN_Invoke(m_npp, m_object, NPN_GetStringIdentifier(method), &argument, 1, &answer);
        }
        return answer;
    }

    NPP m_npp;
    NPObject* m_object;
};

std::string keptProperty(const std::string& name) {
    return "avcontrol kept " + name;
}

std::string keptListener(const std::string& type) {
    return "avcontrol listener " + type;
}

/// Where the attribute is kept that `data` was written over: another attribute takes precedence later.
std::string keptAttribute() {
    return "avcontrol attribute data";
}

bool isAdopted(const PluginInstance& instance, const std::string& name) {
    for (const char* const* adopted = instance.module().adoptedProperties; *adopted; ++adopted) {
        if (name == *adopted) {
            return true;
        }
    }
    return false;
}

bool isNothing(const NPVariant& value) {
    return NPVARIANT_IS_VOID(value) || NPVARIANT_IS_NULL(value);
}

/// Engines lay the page out for an access to the element, which may end the instance.
void write(int instance, const char* name, const NPVariant& value) {
    if (PluginInstance* live = PluginInstance::withNumber(instance)) {
        live->write(NPN_GetStringIdentifier(name), value);
    }
}

void applyProperty(int instance, const Element& element, const char* name) {
    NPVariant value = element.read(name);
    if (!NPVARIANT_IS_VOID(value) && (!NPVARIANT_IS_NULL(value) || element.owns(name))) {
        // Set while there was no instance; from now on the record has it. What the engine itself would call, such as
        // `onfocus`, cannot be removed but emptied.
        element.write(name, NPVariant{NPVariantType_Null, {}});
        element.remove(name);
        element.write(keptProperty(name), value);
    } else {
        value = element.read(keptProperty(name));
    }
    if (!isNothing(value)) {
        write(instance, name, value);
    }
    NPN_ReleaseVariantValue(&value);
}

void applyData(int instance, const Element& element) {
    NPVariant data = element.read(keptProperty(DATA));
    NPVariant attribute = element.read(keptAttribute());
    if (NPVARIANT_IS_STRING(data) && NPVARIANT_IS_STRING(attribute)) {
        if (element.attribute(DATA) == textOf(attribute)) {
            write(instance, DATA, data);
        } else {
            element.clear(keptProperty(DATA));
        }
    }
    NPN_ReleaseVariantValue(&data);
    NPN_ReleaseVariantValue(&attribute);
}

void applyListener(int instance, const Element& element, const std::string& type) {
    NPVariant listener = element.read(keptListener(type));
    PluginInstance* const live = PluginInstance::withNumber(instance);
    if (live && NPVARIANT_IS_OBJECT(listener)) {
        const NPVariant args[2] = {textVariant(type), listener};
        NPVariant result;
        VOID_TO_NPVARIANT(result);
        invokePlugin(*live, element.object(), NPN_GetStringIdentifier("addEventListener"), args, 2, &result);
        NPN_ReleaseVariantValue(&result);
    }
    NPN_ReleaseVariantValue(&listener);
}

} // namespace

void recordProperty(PluginInstance& instance, const std::string& name, const NPVariant& value) {
    const Element element(instance.npp());
    if (isAdopted(instance, name)) {
        element.write(keptProperty(name), value);
    } else if (name == DATA && NPVARIANT_IS_STRING(value)) {
        const std::string attribute = element.attribute(DATA);
        element.write(keptAttribute(), textVariant(attribute));
        element.write(keptProperty(name), value);
    }
}

void recordListener(PluginInstance& instance, NPIdentifier method, const NPVariant* args, uint32_t argCount) {
    // What the object refuses is not kept either.
    const bool wellFormed =
        argCount == 2 || (argCount == 3 && (NPVARIANT_IS_BOOLEAN(args[2]) || NPVARIANT_IS_NULL(args[2])));
    if (!wellFormed || !NPVARIANT_IS_STRING(args[0]) || !NPVARIANT_IS_OBJECT(args[1])) {
        return;
    }
    const bool added = method == NPN_GetStringIdentifier("addEventListener");
    if (!added && method != NPN_GetStringIdentifier("removeEventListener")) {
        return;
    }
    const std::string name = keptListener(textOf(args[0]));
    const Element element(instance.npp());
    if (added) {
        element.write(name, args[1]);
    } else {
        element.clear(name);
    }
}

void applyRecord(PluginInstance& instance) {
    const int number = instance.number();
    const HbbTVModule& module = instance.module();
    const Element element(instance.npp());
    applyData(number, element);
    for (const char* const* name = module.adoptedProperties; *name; ++name) {
        applyProperty(number, element, *name);
    }
    for (const HbbTVListenerProperty* entry = module.listenerProperties; entry->listener; ++entry) {
        applyListener(number, element, entry->listener);
    }
}
