/** Property and listener slots: how a value is stored, how it is handed to script, how it is read as a number. */
#ifndef AVCONTROL_SLOTS_H
#define AVCONTROL_SLOTS_H

#include "HbbTVBaseClass.h"

#include "npapi/npruntime.h"

#include <limits.h>
#include <math.h>
#include <string.h>

inline NPVariant voidVariant() {
    NPVariant variant;
    VOID_TO_NPVARIANT(variant);
    return variant;
}

inline NPVariant nullVariant() {
    NPVariant variant;
    NULL_TO_NPVARIANT(variant);
    return variant;
}

inline NPVariant boolVariant(bool value) {
    NPVariant variant;
    BOOLEAN_TO_NPVARIANT(value, variant);
    return variant;
}

inline NPVariant intVariant(int32_t value) {
    NPVariant variant;
    INT32_TO_NPVARIANT(value, variant);
    return variant;
}

inline NPVariant doubleVariant(double value) {
    NPVariant variant;
    DOUBLE_TO_NPVARIANT(value, variant);
    return variant;
}

/** @param text zero-terminated, borrowed: it must live as long as the variant is used */
inline NPVariant stringVariant(const char* text) {
    NPVariant variant;
    STRINGN_TO_NPVARIANT(text, strlen(text), variant);
    return variant;
}

/** @param object borrowed */
inline NPVariant objectVariant(NPObject* object) {
    NPVariant variant;
    OBJECT_TO_NPVARIANT(object, variant);
    return variant;
}

/** Releases what a variant holds without changing the variant. */
inline void releaseHeldValue(const NPVariant& variant) {
    if (NPVARIANT_IS_OBJECT(variant)) {
        if (NPVARIANT_TO_OBJECT(variant)) {
            NPN_ReleaseObject(NPVARIANT_TO_OBJECT(variant));
        }
    } else if (NPVARIANT_IS_STRING(variant)) {
        NPN_MemFree(const_cast<NPUTF8*>(NPVARIANT_TO_STRING(variant).UTF8Characters));
    }
}

/**
 * Stores a copy of a value; the former value is released last, so that `value` may be a part of it.
 * @return false without memory; the slot is then as it was
 */
inline bool storeInSlot(NPVariant* slot, const NPVariant& value) {
    NPVariant copy;
    if (!HbbTVBaseClass::copyVariant(value, &copy)) {
        return false;
    }
    const NPVariant former = *slot;
    *slot = copy;
    releaseHeldValue(former);
    return true;
}

/**
 * Hands a copy of a slot to script; an Object that `result` holds is released.
 * @return false without memory; `result` is then as it was
 */
inline bool handToScript(const NPVariant& slot, NPVariant* result) {
    NPVariant copy;
    if (!HbbTVBaseClass::copyVariant(slot, &copy)) {
        return false;
    }
    if (NPVARIANT_IS_OBJECT(*result) && NPVARIANT_TO_OBJECT(*result)) {
        NPN_ReleaseObject(NPVARIANT_TO_OBJECT(*result));
    }
    *result = copy;
    return true;
}

/** @return the whole part of a number, the nearest int for one that is too large; not for NaN */
inline int truncateToInt(double number) {
    return number >= INT_MAX ? INT_MAX : number <= INT_MIN ? INT_MIN : static_cast<int>(number);
}

/** @param number receives an Int32 or Double. @return false for other types and NaN; `number` is then as it was */
inline bool readNumber(const NPVariant& variant, double* number) {
    if (NPVARIANT_IS_INT32(variant)) {
        *number = NPVARIANT_TO_INT32(variant);
        return true;
    }
    if (NPVARIANT_IS_DOUBLE(variant) && !isnan(NPVARIANT_TO_DOUBLE(variant))) {
        *number = NPVARIANT_TO_DOUBLE(variant);
        return true;
    }
    return false;
}

/** As readNumber, truncated toward zero. */
inline bool readInt(const NPVariant& variant, int* number) {
    double value = 0;
    if (!readNumber(variant, &value)) {
        return false;
    }
    *number = truncateToInt(value);
    return true;
}

/** @return a Bool's value, or whether a number differs from 0; false for other types */
inline bool readTruth(const NPVariant& variant) {
    if (NPVARIANT_IS_BOOLEAN(variant)) {
        return NPVARIANT_TO_BOOLEAN(variant);
    }
    double number = 0;
    return readNumber(variant, &number) && (number < 0 || number > 0);
}

#endif
