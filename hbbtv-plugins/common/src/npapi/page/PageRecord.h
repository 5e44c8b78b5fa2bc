/**
 * What a page has set on an object, kept with the object's element.
 *
 * Engines end an instance and make another one for the same element when it is moved, hidden and shown, or given
 * another `type` or `data`. A page that holds the element expects its handlers and properties to be in force still.
 */
#ifndef PAGERECORD_H
#define PAGERECORD_H

#include "npapi/instance/InstanceRef.h"

// Script may run in each of these, and the instance may be gone afterwards.

/** Notes a property that script writes: an adopted property or the source property of the module; no others. */
void recordProperty(const InstanceRef& instance, NPIdentifier name, const NPVariant& value);

/** Notes an adopted listener that script adds or removes; does nothing for other methods. */
void recordListener(const InstanceRef& instance, NPIdentifier method, const NPVariant* args, uint32_t argCount);

/**
 * Hands what was noted, and what a page has set on the element while there was no instance, to a new instance, if that
 * is yet to be done. Not while the engine makes the instance.
 */
void settleRecord(const InstanceRef& instance);

/** Has settleRecord called in a turn of its own, unless the engine asks for the script object before. */
void scheduleRecord(const InstanceRef& instance);

#endif
