/** The seven component collections of an A/V Control object. */
#ifndef HBBTVCOMPONENTCOLLECTIONHOLDERCLASS_H
#define HBBTVCOMPONENTCOLLECTIONHOLDERCLASS_H

#include "HbbTVBaseClass.h"
#include "HbbTVExport.h"

#include "AVComponent/HbbTVComponentCollectionClass.h"

/** Initialises the classes of collections and components. Further calls have no effect. */
HBBTV_EXPORT void initializeComponentCollectionHolderNPClass();

/**
 * Owner of the collections. Each getter updates its collection from the player and returns its script object, without a
 * reference for the caller; null without memory. Plug-in thread only.
 */
class HBBTV_EXPORT HbbTVComponentCollectionHolderClass : public HbbTVBaseClass {
public:
    /** @param instance address of the plug-in instance's handle, valid as long as this object is */
    explicit HbbTVComponentCollectionHolderClass(NPP* instance);
    ~HbbTVComponentCollectionHolderClass();

    /** @param player handle of the player whose components are listed; -1 for none */
    void setAVComponentHandle(int player);

    NPObject* getAvailableAudioComponents();
    NPObject* getAvailableVideoComponents();
    NPObject* getAvailableSubtitleComponents();
    NPObject* getAvailableAllComponents();
    NPObject* getActiveAudioComponents();
    NPObject* getActiveVideoComponents();
    NPObject* getActiveSubtitleComponents();

private:
    NPObject* upToDate(HbbTVComponentCollectionClass& collection);

    HbbTVComponentCollectionClass m_AvailableAudioComponents;
    HbbTVComponentCollectionClass m_AvailableVideoComponents;
    HbbTVComponentCollectionClass m_AvailableSubtitleComponents;
    HbbTVComponentCollectionClass m_AvailableAllComponents;
    HbbTVComponentCollectionClass m_ActiveAudioComponents;
    HbbTVComponentCollectionClass m_ActiveVideoComponents;
    HbbTVComponentCollectionClass m_ActiveSubtitleComponents;
    int m_player;
};

#endif
