#include "AVComponent/HbbTVComponentCollectionClass.h"

#include <algorithm>
#include <math.h>
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

void appendComponents(int player, AVComponentType type, std::vector<Hbbtv_AL_ComponentInfo>* list) {
    std::vector<Hbbtv_AL_ComponentInfo> components(MOST_COMPONENTS);
    const int count = Hbbtv_AL_MediaPlayerGetComponents(player, type, components.data(), MOST_COMPONENTS);
    for (int i = 0; i < std::min(count, MOST_COMPONENTS); ++i) {
        Hbbtv_AL_ComponentInfo& info = components[static_cast<size_t>(i)];
        info.type = type;
        info.encoding[sizeof info.encoding - 1] = '\0';
        info.language[sizeof info.language - 1] = '\0';
        list->push_back(info);
    }
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
    : m_instance(instance), m_type(type), m_length(0), m_JSObject(nullptr) {
    m_JSObject = createRecord(*instance, &collectionClass, NPOBJECT_COMPONENT_COLLECTION_CLASS, type, this);
}

HbbTVComponentCollectionClass::~HbbTVComponentCollectionClass() {
    detachRecord(m_JSObject);
}

void HbbTVComponentCollectionClass::update(int player) {
    std::vector<Item> former;
    former.swap(m_items);
    for (const Hbbtv_AL_ComponentInfo& info : query(player)) {
        const auto known = std::find_if(former.begin(), former.end(),
                                        [&info](const Item& item) { return sameComponent(info, item.info); });
        if (known == former.end()) {
            m_items.push_back(makeItem(info));
        } else {
            m_items.push_back(std::move(*known));
            m_items.back().info.active = info.active;
            former.erase(known);
        }
    }
    const auto end = m_type < ACTIVE_AUDIO_COMPONENTS_COLLECTION
                         ? m_items.end()
                         : std::stable_partition(m_items.begin(), m_items.end(),
                                                 [](const Item& item) { return item.info.active != 0; });
    m_length = static_cast<int>(end - m_items.begin());
}

NPObject* HbbTVComponentCollectionClass::getNPObject() {
    return reinterpret_cast<NPObject*>(m_JSObject);
}

int HbbTVComponentCollectionClass::length() const {
    return m_length;
}

NPObject* HbbTVComponentCollectionClass::item(int index) {
    if (index < 0 || index >= length()) {
        return nullptr;
    }
    const Item& found = m_items[static_cast<size_t>(index)];
    if (found.video) {
        return found.video->getNPObject();
    }
    return found.audio ? found.audio->getNPObject() : found.subtitle->getNPObject();
}

std::vector<Hbbtv_AL_ComponentInfo> HbbTVComponentCollectionClass::query(int player) const {
    std::vector<Hbbtv_AL_ComponentInfo> list;
    if (!Hbbtv_AL_MediaPlayerGetComponents || player < 0) {
        return list;
    }
    switch (m_type) {
    case AVAILABLE_VIDEO_COMPONENTS_COLLECTION:
    case ACTIVE_VIDEO_COMPONENTS_COLLECTION:
        appendComponents(player, AV_COMPONENT_TYPE_VIDEO, &list);
        break;
    case AVAILABLE_AUDIO_COMPONENTS_COLLECTION:
    case ACTIVE_AUDIO_COMPONENTS_COLLECTION:
        appendComponents(player, AV_COMPONENT_TYPE_AUDIO, &list);
        break;
    case AVAILABLE_SUBTITLE_COMPONENTS_COLLECTION:
    case ACTIVE_SUBTITLE_COMPONENTS_COLLECTION:
        appendComponents(player, AV_COMPONENT_TYPE_SUBTITLE, &list);
        break;
    case AVAILABLE_ALL_COMPONENTS_COLLECTION:
        appendComponents(player, AV_COMPONENT_TYPE_VIDEO, &list);
        appendComponents(player, AV_COMPONENT_TYPE_AUDIO, &list);
        appendComponents(player, AV_COMPONENT_TYPE_SUBTITLE, &list);
        break;
    }
    return list;
}

HbbTVComponentCollectionClass::Item HbbTVComponentCollectionClass::makeItem(const Hbbtv_AL_ComponentInfo& info) {
    Item item;
    item.info = info;
    switch (info.type) {
    case AV_COMPONENT_TYPE_VIDEO:
        item.video = std::make_unique<HbbTVVideoComponentClass>(m_instance, info);
        break;
    case AV_COMPONENT_TYPE_AUDIO:
        item.audio = std::make_unique<HbbTVAudioComponentClass>(m_instance, info);
        break;
    default:
        item.subtitle = std::make_unique<HbbTVSubtitleComponentClass>(m_instance, info);
        break;
    }
    return item;
}
