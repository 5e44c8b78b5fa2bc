/** A collection of components as script sees it (OIPF DAE, AVComponentCollection): `length`, `[i]`, `item(i)`. */
#ifndef HBBTVCOMPONENTCOLLECTIONCLASS_H
#define HBBTVCOMPONENTCOLLECTIONCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"

#include "AVComponent/HbbTVAudioComponentClass.h"
#include "AVComponent/HbbTVSubtitleComponentClass.h"
#include "AVComponent/HbbTVVideoComponentClass.h"

#include <memory>

typedef enum eAVComponentCollectionType_e {
    AVAILABLE_AUDIO_COMPONENTS_COLLECTION = 0,
    AVAILABLE_VIDEO_COMPONENTS_COLLECTION = 1,
    AVAILABLE_SUBTITLE_COMPONENTS_COLLECTION = 2,
    AVAILABLE_ALL_COMPONENTS_COLLECTION = 3,
    ACTIVE_AUDIO_COMPONENTS_COLLECTION = 4,
    ACTIVE_VIDEO_COMPONENTS_COLLECTION = 5,
    ACTIVE_SUBTITLE_COMPONENTS_COLLECTION = 6
} eAVComponentCollectionType_e;

/** Initialises the class of all collection objects. Further calls have no effect. */
HBBTV_EXPORT void initializeComponentCollectionNPClass();

/** Owner of one collection: its script object and its items. Plug-in thread only. */
class HBBTV_EXPORT HbbTVComponentCollectionClass : public HbbTVBaseClass {
public:
    /** @param instance address of the plug-in instance's handle, valid as long as this object is */
    HbbTVComponentCollectionClass(NPP* instance, eAVComponentCollectionType_e type);
    ~HbbTVComponentCollectionClass();

    /**
     * Updates the collection to the player's current components. Components that the player still has keep their script
     * objects; the others are detached from theirs.
     * The release of a script object may end the plug-in, and this object with it.
     * @param player handle of the adaptation layer
     * @return false when this object has gone, or after an error line without memory: the collection is then as it was
     */
    [[nodiscard]] bool update(int player);

    /** @return the script object, without a reference for the caller; null without memory */
    NPObject* getNPObject();

    /** @return number of items */
    int length() const;

    /** @return the script object of an item, without a reference for the caller; null outside 0 to length() - 1 */
    NPObject* item(int index);

private:
    /** One component; only the owner of its type is set. */
    struct Item {
        NPObject* scriptObject() const;

        Hbbtv_AL_ComponentInfo info = {};
        std::unique_ptr<HbbTVVideoComponentClass> video;
        std::unique_ptr<HbbTVAudioComponentClass> audio;
        std::unique_ptr<HbbTVSubtitleComponentClass> subtitle;
        Item* next = nullptr; ///< while the items are updated: the one of the former items that is the same component
    };

    bool query(int player, std::unique_ptr<Hbbtv_AL_ComponentInfo[]>* list, int* count) const;
    bool fillItems(Item* items, const Hbbtv_AL_ComponentInfo* list, int count, int* length);
    Item* findFormer(const Hbbtv_AL_ComponentInfo& info);
    bool makeOwner(Item* item, const Hbbtv_AL_ComponentInfo& info);

    NPP* m_instance;
    eAVComponentCollectionType_e m_type;
    std::unique_ptr<Item[]> m_items; ///< all of the type: inactive ones keep their script objects too
    alignas(void*) int m_itemCount;
    [[maybe_unused]] void* m_reserved; ///< keeps the layout that plug-ins and frameworks were built with
    int m_length;                      ///< the number of items, from the first, that the collection contains
    NPObjectHbbTV* m_JSObject;
};

#endif
