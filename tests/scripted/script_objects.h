/** What the parts of the scripted browser share: the memory and the objects that an engine keeps account of. */
#ifndef SCRIPT_OBJECTS_H
#define SCRIPT_OBJECTS_H

#include "fake_browser.h"

#include <gtest/gtest.h>

#define EXPECT_PLUGIN_THREAD() EXPECT_EQ(browser().pluginThread, std::this_thread::get_id()) << __func__

namespace fake {

extern NPClass scriptClass; /**< of ScriptObject */
extern NPClass bareClass;

/** @return the page's object, null for one of a plug-in */
ScriptObject* scriptObject(NPObject* object);

/** An identifier is its name; that of an index begins with "#". */
const std::string& nameOf(NPIdentifier identifier);

/** @return values as script would pass them: "(1.0,null)" */
std::string textOf(const NPVariant* values, uint32_t count);

/** @return the characters of a String, any other value as text() */
std::string textIn(const NPVariant& value);

void* newBlock(size_t size);
void freeBlock(void* block);
NPObject* makeObject(NPP handle, NPClass* aClass);
NPObject* retain(NPObject* object);
void release(NPObject* object);
void releaseValue(NPVariant* value);

} // namespace fake

#endif
