/**
 * What a page has set on an object, kept with the object's element.
 *
 * Engines end an instance and make another one for the same element when it is moved, hidden and shown, or given
 * another `type` or `data`. A page that holds the element expects its handlers and properties to be in force still.
 */
#ifndef PAGERECORD_H
#define PAGERECORD_H

#include "npapi/npruntime.h"

#include <string>

class PluginInstance;

/** Notes a property that script writes: one of the module's adopted properties, or `data`; others are not kept. */
void recordProperty(PluginInstance& instance, const std::string& name, const NPVariant& value);

/** Notes what addEventListener or removeEventListener is called with; does nothing for other methods. */
void recordListener(PluginInstance& instance, NPIdentifier method, const NPVariant* args, uint32_t argCount);

/**
 * Hands what was noted, and what a page has set on the element while there was no instance, to a new instance.
 * Script may run, and the instance may be gone afterwards.
 */
void applyRecord(PluginInstance& instance);

#endif
