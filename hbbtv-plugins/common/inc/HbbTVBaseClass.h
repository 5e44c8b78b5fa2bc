/** Base of the classes behind script objects: their common operations on NPVariant values and records. */
#ifndef HBBTVBASECLASS_H
#define HBBTVBASECLASS_H

#include "HbbTVExport.h"
#include "HbbTVObjectsTypes.h"

/** Has no fields and no virtual operations, so that the first field of a derived class is its own. */
class HBBTV_EXPORT HbbTVBaseClass {
public:
    HbbTVBaseClass();
    ~HbbTVBaseClass();
    HbbTVBaseClass(const HbbTVBaseClass&) = delete;
    HbbTVBaseClass& operator=(const HbbTVBaseClass&) = delete;

    /**
     * Looks a name up.
     * @param identifiers table of `count` identifiers
     * @return index of the first entry equal to `name`, or -1
     */
    static int findIdentifier(const NPIdentifier* identifiers, int count, NPIdentifier name);

    /**
     * Copies a value so that the receiver owns it: a String into a new buffer of the same length, an Object with a
     * reference of its own, every other type unchanged. Does not release the former value of `copy`.
     * @return false without memory; `copy` is then unchanged
     */
    static bool copyVariant(const NPVariant& value, NPVariant* copy);

    /** Creates a String value from zero-terminated text. @return false without memory; `result` is then unchanged */
    static bool makeString(const char* text, NPVariant* result);

    /**
     * Creates a script object, whose record the class's `allocate` (allocateRecord) allocates.
     * @param owner the object behind it, which must call detachRecord before it is destroyed
     * @return the record with one reference for the caller, or null without memory
     */
    static NPObjectHbbTV* createRecord(NPP instance, NPClass* npClass, int type, int id, void* owner);

    /** Detaches a record from its owner and releases the owner's reference. @param record may be null */
    static void detachRecord(NPObjectHbbTV* record);

    /** `allocate` of the classes for createRecord. */
    static NPObject* allocateRecord(NPP instance, NPClass* npClass);

    /** `deallocate` of the classes for createRecord. */
    static void deallocateRecord(NPObject* record);

    /**
     * Distinguishes the framework's script objects from all others. Reads only the object's class.
     * @param object any script object, or null
     * @return true when it is an NPObjectHbbTV of this framework
     */
    static bool isFrameworkObject(const NPObject* object);
};

#endif
