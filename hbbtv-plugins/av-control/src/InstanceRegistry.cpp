// The registry of live instances, which tells whether the instance that a player's report names still exists.
#include "Internals.h"
#include "Log.h"

#include <pthread.h>
#include <stdlib.h>

static pluginHandleList* pluginHandleListHead = nullptr;
static pthread_mutex_t handleMutex;
static bool init = false;

void insetHandleToList(VideoPlugin* handle) {
    // The first instance is made before any player can report, so nobody else looks at this flag.
    if (!init) {
        pthread_mutex_init(&handleMutex, nullptr);
        init = true;
    }
    pthread_mutex_lock(&handleMutex);
    pluginHandleList* node = static_cast<pluginHandleList*>(malloc(sizeof(pluginHandleList)));
    if (node) {
        node->handle = handle;
        node->next = nullptr;
        pluginHandleList** end = &pluginHandleListHead;
        while (*end) {
            end = &(*end)->next;
        }
        *end = node;
    } else {
        LOG_ERROR("No memory to register VideoPlugin %p: it will hear nothing of its player\n",
                  static_cast<void*>(handle));
    }
    pthread_mutex_unlock(&handleMutex);
}

void deleteHandleFromList(VideoPlugin* handle) {
    pthread_mutex_lock(&handleMutex);
    if (!pluginHandleListHead) {
        LOG_ERROR("pluginHandleListHead is NULL!!\n");
        pthread_mutex_unlock(&handleMutex);
        return;
    }
    pluginHandleList** link = &pluginHandleListHead;
    while (*link && (*link)->handle != handle) {
        link = &(*link)->next;
    }
    if (*link) {
        pluginHandleList* node = *link;
        *link = node->next;
        free(node);
        LOG("Delete VideoPlugin hande = %p OK\n\n", static_cast<void*>(handle));
    } else {
        LOG_ERROR("Delete VideoPlugin fail!!!,don't find VideoPlugin handle %p in list\n", static_cast<void*>(handle));
    }
    pthread_mutex_unlock(&handleMutex);
}

bool findHandleFromList(VideoPlugin* handle) {
    return findInstanceHandle(handle, nullptr);
}

bool findInstanceHandle(VideoPlugin* handle, NPP* instance) {
    pthread_mutex_lock(&handleMutex);
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
    pthread_mutex_unlock(&handleMutex);
    return found;
}

void storeInstanceHandle(VideoPlugin* handle, NPP instance) {
    pthread_mutex_lock(&handleMutex);
    *handle->getNPP() = instance;
    pthread_mutex_unlock(&handleMutex);
}
