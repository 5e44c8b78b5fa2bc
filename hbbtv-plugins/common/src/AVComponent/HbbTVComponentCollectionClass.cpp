#include "AVComponent/HbbTVComponentCollectionClass.h"

#include "FrameworkLog.h"
#include "InstanceWatch.h"

#include <algorithm>
#include <math.h>
#include <new>
#include <stdlib.h>
#include <string.h>
#include <utility>

// A platform without the extension leaves it undefined: every collection is then empty.
#pragma weak Hbbtv_AL_MediaPlayerGetComponents

namespace {

constexpr size_t LONGEST_INDEX = 9;  // digits that always fit an int
constexpr int MOST_COMPONENTS = 256; // of one type; a player that reports more is mistaken

NPClass collectionClass;
NPIdentifier lengthIdentifier;
NPIdentifier itemIdentifier;

HbbTVComponentCollectionClass* ownerOf(NPObject* object) {
    return static_cast<HbbTVComponentCollectionClass*>(reinterpret_cast<NPObjectHbbTV*>(object)->objectInstancePtr);
}

bool readItem(NPObject* object, int index, NPVariant* result) {
    HbbTVComponentCollectionClass* owner = ownerOf(object);
    NPObject* found = owner ? owner->item(index) : nullptr;
    if (!found) {
        return false;
    }
    OBJECT_TO_NPVARIANT(NPN_RetainObject(found), *result);
    return true;
}

/// Reads an identifier as an index: engines pass `collection[1]` as the number 1 or as the name "1".
/// @return the index, or -1
int indexOf(NPIdentifier name) {
    if (!NPN_IdentifierIsString(name)) {
        return NPN_IntFromIdentifier(name);
    }
    NPUTF8* text = NPN_UTF8FromIdentifier(name);
    int index = -1;
    if (text && *text && strlen(text) <= LONGEST_INDEX && strspn(text, "0123456789") == strlen(text)) {
        index = atoi(text);
    }
    NPN_MemFree(text);
    return index;
}

// The engine remembers positive answers by class: every index exists, and an empty one reads as undefined.
bool hasProperty(NPObject*, NPIdentifier name) {
    return name == lengthIdentifier || indexOf(name) >= 0;
}

bool getProperty(NPObject* object, NPIdentifier name, NPVariant* result) {
    if (name == lengthIdentifier) {
        HbbTVComponentCollectionClass* owner = ownerOf(object);
        INT32_TO_NPVARIANT(owner ? owner->length() : 0, *result);
        return true;
    }
    return readItem(object, indexOf(name), result);
}

bool setProperty(NPObject*, NPIdentifier, const NPVariant*) {
    return false;
}

bool hasMethod(NPObject*, NPIdentifier name) {
    return name == itemIdentifier;
}

bool invoke(NPObject* object, NPIdentifier name, const NPVariant* args, uint32_t argCount, NPVariant* result) {
    if (name != itemIdentifier) {
        return false;
    }
    NULL_TO_NPVARIANT(*result);
    double index = -1;
    if (argCount > 0 && NPVARIANT_IS_INT32(args[0])) {
        index = NPVARIANT_TO_INT32(args[0]);
    } else if (argCount > 0 && NPVARIANT_IS_DOUBLE(args[0])) {
        index = trunc(NPVARIANT_TO_DOUBLE(args[0]));
    }
    HbbTVComponentCollectionClass* owner = ownerOf(object);
    if (owner && index >= 0 && index < owner->length()) {
        readItem(object, static_cast<int>(index), result);
    }
    return true;
}

// Whether it is active does not matter: a component stays the same object when the selection changes.
bool sameComponent(const Hbbtv_AL_ComponentInfo& a, const Hbbtv_AL_ComponentInfo& b) {
    return a.type == b.type && a.pid == b.pid && a.componentTag == b.componentTag && a.encrypted == b.encrypted &&
           !strcmp(a.encoding, b.encoding) && !strcmp(a.language, b.language) &&
           fabs(a.aspectRatio - b.aspectRatio) < 0.001 && a.audioDescription == b.audioDescription &&
           a.audioChannels == b.audioChannels && a.hearingImpaired == b.hearingImpaired;
}

/// Adds the player's components of one type to a list with room for MOST_COMPONENTS more.
void appendComponents(int player, AVComponentType type, Hbbtv_AL_ComponentInfo* list, int* count) {
    Hbbtv_AL_ComponentInfo* const added = list + *count;
    const int known = Hbbtv_AL_MediaPlayerGetComponents(player, type, added, MOST_COMPONENTS);
    const int listed = std::max(0, std::min(known, MOST_COMPONENTS));
    for (int i = 0; i < listed; ++i) {
        added[i].type = type;
        added[i].encoding[sizeof added[i].encoding - 1] = '\0';
        added[i].language[sizeof added[i].language - 1] = '\0';
    }
    *count += listed;
}

} // namespace

void initializeComponentCollectionNPClass() {
    collectionClass.structVersion = NP_CLASS_STRUCT_VERSION;
    collectionClass.allocate = HbbTVBaseClass::allocateRecord;
    collectionClass.deallocate = HbbTVBaseClass::deallocateRecord;
    collectionClass.hasMethod = hasMethod;
    collectionClass.invoke = invoke;
    collectionClass.hasProperty = hasProperty;
    collectionClass.getProperty = getProperty;
    collectionClass.setProperty = setProperty;
    lengthIdentifier = NPN_GetStringIdentifier("length");
    itemIdentifier = NPN_GetStringIdentifier("item");
}

HbbTVComponentCollectionClass::HbbTVComponentCollectionClass(NPP* instance, eAVComponentCollectionType_e type)
    : m_instance(instance), m_type(type), m_itemCount(0), m_reserved(nullptr), m_length(0), m_JSObject(nullptr) {
    m_JSObject = createRecord(*instance, &collectionClass, NPOBJECT_COMPONENT_COLLECTION_CLASS, type, this);
}

HbbTVComponentCollectionClass::~HbbTVComponentCollectionClass() {
    detachRecord(m_JSObject);
}

bool HbbTVComponentCollectionClass::update(int player) {
    std::unique_ptr<Hbbtv_AL_ComponentInfo[]> list;
    std::unique_ptr<Item[]> items;
    int count = 0;
    int length = 0;
    if (query(player, &list, &count)) {
        items.reset(new (std::nothrow) Item[static_cast<size_t>(count)]);
    }
    const bool complete = items && fillItems(items.get(), list.get(), count, &length);
    for (int i = 0; i < m_itemCount; ++i) {
        Item& former = m_items[static_cast<size_t>(i)];
        if (Item* const item = std::exchange(former.next, nullptr); complete && item) {
            item->video = std::move(former.video);
            item->audio = std::move(former.audio);
            item->subtitle = std::move(former.subtitle);
        }
    }
    if (!complete) {
        FRAMEWORK_LOG_ERROR("No memory for the list of %d components: it stays as it was\n", count);
        return false;
    }
    m_items.swap(items);
    m_itemCount = count;
    m_length = length;
    const InstanceWatch plugin(m_instance);
    items.reset();
    return plugin.alive();
}

/// Fills a new list, the items that the collection shows first. Former items that are the same components learn of
/// their successors. @return false without memory
bool HbbTVComponentCollectionClass::fillItems(Item* items, const Hbbtv_AL_ComponentInfo* list, int count, int* length) {
    const bool showsAll = m_type < ACTIVE_AUDIO_COMPONENTS_COLLECTION;
    Item* item = items;
    for (const bool shown : {true, false}) {
        for (const Hbbtv_AL_ComponentInfo* info = list; info != list + count; ++info) {
            if ((showsAll || info->active != 0) != shown) {
                continue;
            }
            Item* const known = findFormer(*info);
            if (known) {
                known->next = item;
                item->info = known->info;
                item->info.active = info->active;
            } else if (!makeOwner(item, *info)) {
                return false;
            }
            ++item;
        }
        *length += shown ? static_cast<int>(item - items) : 0;
    }
    return true;
}

/// @return an item of the present list that is the same component, and has no successor yet; null for none
HbbTVComponentCollectionClass::Item* HbbTVComponentCollectionClass::findFormer(const Hbbtv_AL_ComponentInfo& info) {
    Item* const end = m_items.get() + m_itemCount;
    Item* const found = std::find_if(
        m_items.get(), end, [&info](const Item& item) { return !item.next && sameComponent(info, item.info); });
    return found == end ? nullptr : found;
}

NPObject* HbbTVComponentCollectionClass::getNPObject() {
    return reinterpret_cast<NPObject*>(m_JSObject);
}

int HbbTVComponentCollectionClass::length() const {
    return m_length;
}

NPObject* HbbTVComponentCollectionClass::item(int index) {
    return index < 0 || index >= length() ? nullptr : m_items[static_cast<size_t>(index)].scriptObject();
}

NPObject* HbbTVComponentCollectionClass::Item::scriptObject() const {
    if (video) {
        return video->getNPObject();
    }
    if (audio) {
        return audio->getNPObject();
    }
    return subtitle ? subtitle->getNPObject() : nullptr;
}

/// @return false without memory
bool HbbTVComponentCollectionClass::query(int player, std::unique_ptr<Hbbtv_AL_ComponentInfo[]>* list,
                                          int* count) const {
    constexpr size_t MOST_TYPES = 3;
    list->reset(new (std::nothrow) Hbbtv_AL_ComponentInfo[MOST_COMPONENTS * MOST_TYPES]());
    if (!*list || !Hbbtv_AL_MediaPlayerGetComponents || player < 0) {
        return *list != nullptr;
    }
    const bool all = m_type == AVAILABLE_ALL_COMPONENTS_COLLECTION;
    if (all || m_type == AVAILABLE_VIDEO_COMPONENTS_COLLECTION || m_type == ACTIVE_VIDEO_COMPONENTS_COLLECTION) {
        appendComponents(player, AV_COMPONENT_TYPE_VIDEO, list->get(), count);
    }
    if (all || m_type == AVAILABLE_AUDIO_COMPONENTS_COLLECTION || m_type == ACTIVE_AUDIO_COMPONENTS_COLLECTION) {
        appendComponents(player, AV_COMPONENT_TYPE_AUDIO, list->get(), count);
    }
    if (all || m_type == AVAILABLE_SUBTITLE_COMPONENTS_COLLECTION || m_type == ACTIVE_SUBTITLE_COMPONENTS_COLLECTION) {
        appendComponents(player, AV_COMPONENT_TYPE_SUBTITLE, list->get(), count);
    }
    return true;
}

/// Makes the owner of a component. @return false without memory
bool HbbTVComponentCollectionClass::makeOwner(Item* item, const Hbbtv_AL_ComponentInfo& info) {
    item->info = info;
    switch (info.type) {
    case AV_COMPONENT_TYPE_VIDEO:
        item->video.reset(new (std::nothrow) HbbTVVideoComponentClass(m_instance, info));
        break;
    case AV_COMPONENT_TYPE_AUDIO:
        item->audio.reset(new (std::nothrow) HbbTVAudioComponentClass(m_instance, info));
        break;
    default:
        item->subtitle.reset(new (std::nothrow) HbbTVSubtitleComponentClass(m_instance, info));
        break;
    }
    return item->scriptObject() != nullptr;
}
