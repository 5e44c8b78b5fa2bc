/** Owning types for what the engine counts: a reference to a script object, and a script value. */
#ifndef SCRIPTVALUE_H
#define SCRIPTVALUE_H

#include "npapi/npruntime.h"

#include <utility>

/**
 * A reference to a script object, given back when it goes; may be empty. Giving the last one back may run layout, and
 * that may end instances.
 */
class ScriptObject {
public:
    ScriptObject() : m_object(nullptr) {}
    /** @param owned object with a reference, which becomes this object's; may be null */
    explicit ScriptObject(NPObject* owned) : m_object(owned) {}
    ScriptObject(ScriptObject&& other) noexcept : m_object(other.release()) {}
    ScriptObject& operator=(ScriptObject&& other) noexcept {
        ScriptObject former(m_object);
        m_object = other.release();
        return *this;
    }
    ~ScriptObject() {
        if (m_object) {
            NPN_ReleaseObject(m_object);
        }
    }

    /** @return a reference of its own. @param object may be null */
    static ScriptObject to(NPObject* object) { return ScriptObject(object ? NPN_RetainObject(object) : nullptr); }

    explicit operator bool() const { return m_object != nullptr; }
    NPObject* get() const { return m_object; }

    /** Gives the reference to the caller. */
    NPObject* release() { return std::exchange(m_object, nullptr); }

    /** @return a value that borrows the reference; Null when there is none */
    NPVariant borrowed() const {
        NPVariant value;
        NULL_TO_NPVARIANT(value);
        if (m_object) {
            OBJECT_TO_NPVARIANT(m_object, value);
        }
        return value;
    }

    /** As release(), as a value; Null when there is none. */
    NPVariant releaseValue() {
        const NPVariant value = borrowed();
        release();
        return value;
    }

private:
    NPObject* m_object;
};

/** A script value, given back when it goes. Converts to true when an engine has answered with it. */
class ScriptValue {
public:
    ScriptValue() : m_answered(false) { VOID_TO_NPVARIANT(m_value); }
    ScriptValue(ScriptValue&& other) noexcept : m_value(other.m_value), m_answered(other.m_answered) { other.forget(); }
    ScriptValue& operator=(ScriptValue&& other) noexcept {
        const ScriptValue former(std::move(*this));
        m_value = other.m_value;
        m_answered = other.m_answered;
        other.forget();
        return *this;
    }
    ~ScriptValue() {
        // An Object of an engine may be null: there is nothing to give back.
        if (NPVARIANT_IS_STRING(m_value) || isObject()) {
            NPN_ReleaseVariantValue(&m_value);
        }
    }

    explicit operator bool() const { return m_answered; }
    const NPVariant& get() const { return m_value; }

    bool isNothing() const { return NPVARIANT_IS_VOID(m_value) || NPVARIANT_IS_NULL(m_value); }
    bool isString() const { return NPVARIANT_IS_STRING(m_value); }
    bool isObject() const { return NPVARIANT_IS_OBJECT(m_value) && NPVARIANT_TO_OBJECT(m_value); }
    bool isTrue() const { return NPVARIANT_IS_BOOLEAN(m_value) && NPVARIANT_TO_BOOLEAN(m_value); }

    /** @param number receives an Int32 or Double; else it is left as it is. @return false for other types */
    bool readNumber(double* number) const {
        if (NPVARIANT_IS_INT32(m_value)) {
            *number = NPVARIANT_TO_INT32(m_value);
        } else if (NPVARIANT_IS_DOUBLE(m_value)) {
            *number = NPVARIANT_TO_DOUBLE(m_value);
        } else {
            return false;
        }
        return true;
    }

    /** @return where a function of the engine puts its result, to be followed by answered() */
    NPVariant* result() { return &m_value; }

    /** A function of the engine has returned. What is in its result after a failure must not be used. */
    void answered(bool succeeded) {
        m_answered = succeeded;
        if (!succeeded) {
            VOID_TO_NPVARIANT(m_value);
        }
    }

    /** @return the Object, with its reference; empty for other types */
    ScriptObject takeObject() { return ScriptObject(isObject() ? NPVARIANT_TO_OBJECT(release()) : nullptr); }

    /** Gives the value to the caller. */
    NPVariant release() {
        const NPVariant value = m_value;
        forget();
        return value;
    }

private:
    void forget() {
        VOID_TO_NPVARIANT(m_value);
        m_answered = false;
    }

    NPVariant m_value;
    bool m_answered;
};

#endif
