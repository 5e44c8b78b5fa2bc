/** Base of the classes behind script objects: the operations on NPVariant properties that they share. */
#ifndef HBBTVBASECLASS_H
#define HBBTVBASECLASS_H

#include "HbbTVExport.h"
#include "HbbTVObjectsTypes.h"

/** Has no fields and no virtual operations: an owner's first field is the first of its own. */
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
     * reference of its own, every other type as it is. What `copy` held before is not looked at.
     * @return false without memory; `copy` is then untouched
     */
    static bool copyVariant(const NPVariant& value, NPVariant* copy);

    /** Makes a String value of zero-terminated text. @return false without memory; `result` is then untouched */
    static bool makeString(const char* text, NPVariant* result);

    /**
     * Makes a script object whose record is allocated by its class's `allocate` (allocateRecord).
     * @param owner the object behind it, which must call detachRecord before it goes
     * @return the record with one reference, the caller's, or null without memory
     */
    static NPObjectHbbTV* createRecord(NPP instance, NPClass* npClass, int type, int id, void* owner);

    /** Parts a record from its owner and gives the owner's reference back. @param record may be null */
    static void detachRecord(NPObjectHbbTV* record);

    /** `allocate` of the classes that createRecord is used with. */
    static NPObject* allocateRecord(NPP instance, NPClass* npClass);

    /** `deallocate` of the classes that createRecord is used with. */
    static void deallocateRecord(NPObject* record);

    /**
     * Tells the framework's own script objects from any other, looking at nothing but the object's class.
     * @param object any script object, or null
     * @return true when it is an NPObjectHbbTV of this framework
     */
    static bool isFrameworkObject(const NPObject* object);
};

#endif
