/** Component collections for engines that never ask a plug-in's script object for `collection[i]`. */
#ifndef COLLECTIONARRAY_H
#define COLLECTIONARRAY_H

#include "npapi/instance/InstanceRef.h"

/**
 * Replaces a component collection by a script array of its items, with `length` and `item(i)`. A collection changes
 * only when it is asked for again, so nothing is lost. Script runs: the instance may be gone afterwards.
 * @param value a result on its way to script; other values, and a collection that the page cannot copy, stay
 */
void presentAsArray(const InstanceRef& instance, NPVariant* value);

#endif
