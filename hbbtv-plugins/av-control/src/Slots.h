/** Script values: how they are made, kept in the slots of properties and listeners, handed to script, and read. */
#ifndef AVCONTROL_SLOTS_H
#define AVCONTROL_SLOTS_H

#include "HbbTVBaseClass.h"
#include "InstanceGuard.h"

#include "npapi/npruntime.h"

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

/** @param text borrowed: it must live as long as the variant is used */
inline NPVariant stringVariant(const char* text, size_t length) {
    NPVariant variant;
    STRINGN_TO_NPVARIANT(text, length, variant);
    return variant;
}

/** @param text zero-terminated, borrowed */
inline NPVariant stringVariant(const char* text) {
    return stringVariant(text, strlen(text));
}

/** @param object borrowed */
inline NPVariant objectVariant(NPObject* object) {
    NPVariant variant;
    OBJECT_TO_NPVARIANT(object, variant);
    return variant;
}

inline bool isObject(const NPVariant& variant) {
    return NPVARIANT_IS_OBJECT(variant) && NPVARIANT_TO_OBJECT(variant);
}

/** Releases what a variant holds, without changing the variant. An Object's release may end instances. */
void releaseHeldValue(const NPVariant& variant);

/** Releases what the browser answered. */
void releaseAnswer(NPVariant* answer);

/** As releaseHeldValue, for an instance that is used afterwards. @return Done, or Gone */
Outcome releaseFor(VideoPlugin& plugin, const NPVariant& variant);

/**
 * Stores a value that becomes the slot's. The former one is released last.
 * @return Done, or Gone
 */
Outcome moveToSlot(VideoPlugin& plugin, NPVariant* slot, const NPVariant& owned);

/**
 * Stores a copy of a value; the former value is released last, so that `value` may be a part of it.
 * @return Refused without memory; the slot is then as it was
 */
Outcome storeInSlot(VideoPlugin& plugin, NPVariant* slot, const NPVariant& value);

/**
 * Hands a copy of a slot to script. An Object that `result` held is released last: the slot may be gone afterwards.
 * @return false without memory; `result` is then as it was
 */
bool handToScript(const NPVariant& slot, NPVariant* result);

/** @return the whole part of a number, the nearest int for one that is too large; not for NaN */
int truncateToInt(double number);

/** @param number receives an Int32 or Double. @return false for other types and NaN; `number` is then as it was */
bool readNumber(const NPVariant& variant, double* number);

/** As readNumber, truncated toward zero. */
bool readInt(const NPVariant& variant, int* number);

/** @return a Bool's value, or whether a number differs from 0; false for other types */
bool readTruth(const NPVariant& variant);

#endif
