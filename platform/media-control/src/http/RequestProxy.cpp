#include "http/RequestProxy.h"

#include "GuardedMutex.h"

#include <gio/gio.h>
#include <mutex>

namespace media {
namespace {

constexpr gint BEFORE_ALL_OTHERS = 1'000'000;
constexpr const char* NAME = "media-control";

struct Settings {
    support::Mutex mutex;
    std::string proxy GUARDED_BY(mutex);
    std::string except GUARDED_BY(mutex);
};

Settings& settings() {
    // Never destroyed: a player's thread may still run while the process ends.
    static Settings& instance = *new Settings;
    return instance;
}

/** @return the resolver that GLib would use without this one; null when there is none */
GProxyResolver* systemResolver() {
    static GProxyResolver* const resolver = []() -> GProxyResolver* {
        GIOExtensionPoint* point = g_io_extension_point_lookup(G_PROXY_RESOLVER_EXTENSION_POINT_NAME);
        for (GList* each = g_io_extension_point_get_extensions(point); each; each = each->next) {
            auto* extension = static_cast<GIOExtension*>(each->data);
            if (!g_str_equal(g_io_extension_get_name(extension), NAME)) {
                auto* made = G_PROXY_RESOLVER(g_object_new(g_io_extension_get_type(extension), nullptr));
                if (g_proxy_resolver_is_supported(made)) {
                    return made;
                }
                g_object_unref(made);
            }
        }
        return nullptr;
    }();
    return resolver;
}

std::string ownProxyFor(const std::string& uri) {
    const support::Lock lock(settings().mutex);
    const std::string straight = "http://" + settings().except;
    const bool isStraight = uri == straight || uri.rfind(straight + "/", 0) == 0;
    return uri.rfind("http://", 0) == 0 && !isStraight ? settings().proxy : std::string();
}

gboolean isSupported(GProxyResolver* /*self*/) {
    return TRUE;
}

gchar** lookup(GProxyResolver* /*self*/, const gchar* uri, GCancellable* cancellable, GError** error) {
    const std::string proxy = ownProxyFor(uri);
    if (proxy.empty() && systemResolver()) {
        return g_proxy_resolver_lookup(systemResolver(), uri, cancellable, error);
    }
    const gchar* const found[] = {proxy.empty() ? "direct://" : proxy.c_str(), nullptr};
    return g_strdupv(const_cast<gchar**>(found));
}

void lookupInThread(GTask* task, gpointer self, gpointer uri, GCancellable* cancellable) {
    GError* error = nullptr;
    gchar** found = lookup(G_PROXY_RESOLVER(self), static_cast<const gchar*>(uri), cancellable, &error);
    if (found) {
        g_task_return_pointer(task, found, reinterpret_cast<GDestroyNotify>(g_strfreev));
    } else {
        g_task_return_error(task, error);
    }
}

void lookupAsync(GProxyResolver* self, const gchar* uri, GCancellable* cancellable, GAsyncReadyCallback callback,
                 gpointer data) {
    GTask* task = g_task_new(self, cancellable, callback, data);
    g_task_set_task_data(task, g_strdup(uri), g_free);
    g_task_run_in_thread(task, lookupInThread);
    g_object_unref(task);
}

gchar** lookupFinish(GProxyResolver* /*self*/, GAsyncResult* result, GError** error) {
    return static_cast<gchar**>(g_task_propagate_pointer(G_TASK(result), error));
}

void fillInterface(gpointer table, gpointer /*data*/) {
    auto* resolver = static_cast<GProxyResolverInterface*>(table);
    resolver->is_supported = isSupported;
    resolver->lookup = lookup;
    resolver->lookup_async = lookupAsync;
    resolver->lookup_finish = lookupFinish;
}

/** GLib takes the first of its resolvers that is supported, once for the process. */
void registerResolver() {
    const GInterfaceInfo interface = {fillInterface, nullptr, nullptr};
    const GType type = g_type_register_static_simple(G_TYPE_OBJECT, "MediaControlProxyResolver", sizeof(GObjectClass),
                                                     nullptr, sizeof(GObject), nullptr, GTypeFlags(0));
    g_type_add_interface_static(type, G_TYPE_PROXY_RESOLVER, &interface);
    g_type_ensure(G_TYPE_PROXY_RESOLVER);
    g_io_extension_point_register(G_PROXY_RESOLVER_EXTENSION_POINT_NAME);
    g_io_extension_point_implement(G_PROXY_RESOLVER_EXTENSION_POINT_NAME, type, NAME, BEFORE_ALL_OTHERS);
}

} // namespace

void setRequestProxy(const std::string& proxy, const std::string& except) {
    static std::once_flag once;
    std::call_once(once, registerResolver);
    const support::Lock lock(settings().mutex);
    settings().proxy = proxy;
    settings().except = except;
}

} // namespace media
