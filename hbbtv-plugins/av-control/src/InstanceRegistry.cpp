// The registry of live instances: whether the instance that a player's report names still exists.
#include "HbbTVThreadSafety.h"
#include "Internals.h"
#include "Log.h"

#include <pthread.h>
#include <stdlib.h>

namespace {

struct HBBTV_CAPABILITY HandleMutex {
    void lock() HBBTV_ACQUIRE() { pthread_mutex_lock(&mutex); }
    void unlock() HBBTV_RELEASE() { pthread_mutex_unlock(&mutex); }

    pthread_mutex_t mutex;
};

HandleMutex handleMutex;
bool init = false;
pluginHandleList* pluginHandleListHead HBBTV_GUARDED_BY(handleMutex) = nullptr;

class HBBTV_SCOPED_LOCK HandleLock {
public:
    HandleLock() HBBTV_ACQUIRE(handleMutex) { handleMutex.lock(); }
    ~HandleLock() HBBTV_RELEASE() { handleMutex.unlock(); }

    HandleLock(const HandleLock&) = delete;
    HandleLock& operator=(const HandleLock&) = delete;
};

/// The link that leads to an instance's node, or that ends the list when it has none, as for null.
pluginHandleList** linkTo(const VideoPlugin* handle) HBBTV_REQUIRES(handleMutex) {
    pluginHandleList** link = &pluginHandleListHead;
    while (*link && (*link)->handle != handle) {
        link = &(*link)->next;
    }
    return link;
}

} // namespace

void insetHandleToList(VideoPlugin* handle) {
    // The first instance is made before any player can report, so nobody else looks at this flag.
    if (!init) {
        pthread_mutex_init(&handleMutex.mutex, nullptr);
        init = true;
    }
    const HandleLock lock;
    pluginHandleList* node = static_cast<pluginHandleList*>(malloc(sizeof(pluginHandleList)));
    if (node) {
        node->handle = handle;
        node->next = nullptr;
        *linkTo(nullptr) = node;
    } else {
        LOG_ERROR("No memory to register VideoPlugin %p: it will hear nothing of its player\n",
                  static_cast<void*>(handle));
    }
}

void deleteHandleFromList(VideoPlugin* handle) {
    const HandleLock lock;
    if (!pluginHandleListHead) {
        LOG_ERROR("pluginHandleListHead is NULL!!\n");
        return;
    }
    pluginHandleList** link = linkTo(handle);
    if (*link) {
        pluginHandleList* node = *link;
        *link = node->next;
        free(node);
        LOG("Delete VideoPlugin hande = %p OK\n\n", static_cast<void*>(handle));
    } else {
        LOG_ERROR("Delete VideoPlugin fail!!!,don't find VideoPlugin handle %p in list\n", static_cast<void*>(handle));
    }
}

bool findHandleFromList(VideoPlugin* handle) {
    return findInstanceHandle(handle, nullptr);
}

bool findInstanceHandle(VideoPlugin* handle, NPP* instance) {
    const HandleLock lock;
    bool found = false;
    for (const pluginHandleList* p = pluginHandleListHead; p && !found; p = p->next) {
        LOG("p->handle = %p\n\n", static_cast<void*>(p->handle));
        found = p->handle == handle;
    }
    if (found) {
        LOG("Find VideoPlugin handle %p in list\n", static_cast<void*>(handle));
        if (instance) {
            *instance = *handle->getNPP();
        }
    } else {
        LOG("Don't find VideoPlugin handle %p in list\n", static_cast<void*>(handle));
    }
    return found;
}

void storeInstanceHandle(VideoPlugin* handle, NPP instance) {
    const HandleLock lock;
    *handle->getNPP() = instance;
}
