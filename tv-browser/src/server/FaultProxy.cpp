#include "server/FaultProxy.h"

#include "GuardedMutex.h"
#include "server/ProxyExchange.h"

#include <atomic>
#include <gio/gio.h>
#include <list>
#include <thread>

namespace tv {

struct FaultProxy::Private {
    struct Worker {
        std::thread thread;
        std::atomic<bool> isDone{false};
    };

    GSocketListener* const listener = g_socket_listener_new();
    GCancellable* const end = g_cancellable_new();
    std::thread acceptor;
    std::list<Worker> workers; // of the acceptor, and of the destructor after it
    StopSignal stop;
    support::Mutex mutex;
    std::vector<ServerFaultRule> rules GUARDED_BY(mutex);

    void accept();
    void serve(GSocketConnection* connection);
};

void FaultProxy::Private::serve(GSocketConnection* connection) {
    const auto faultOf = [this](const std::vector<std::string>& names) {
        const support::Lock lock(mutex);
        return faultFor(rules, names);
    };
    respondAsProxy(*G_IO_STREAM(connection), faultOf, stop, *end);
    g_object_unref(connection);
}

void FaultProxy::Private::accept() {
    while (GSocketConnection* connection = g_socket_listener_accept(listener, nullptr, end, nullptr)) {
        workers.remove_if([](Worker& worker) {
            const bool isDone = worker.isDone;
            if (isDone) {
                worker.thread.join();
            }
            return isDone;
        });
        Worker& worker = workers.emplace_back();
        worker.thread = std::thread([this, &worker, connection] {
            serve(connection);
            worker.isDone = true;
        });
    }
}

FaultProxy::FaultProxy() : d(std::make_unique<Private>()) {}

FaultProxy::~FaultProxy() {
    d->stop.stop();
    g_cancellable_cancel(d->end);
    if (d->acceptor.joinable()) {
        d->acceptor.join();
    }
    for (Private::Worker& worker : d->workers) {
        worker.thread.join();
    }
    g_object_unref(d->listener);
    g_object_unref(d->end);
}

int FaultProxy::start() {
    GInetAddress* loopback = g_inet_address_new_loopback(G_SOCKET_FAMILY_IPV4);
    GSocketAddress* wanted = g_inet_socket_address_new(loopback, 0);
    GSocketAddress* address = nullptr;
    const bool listens = g_socket_listener_add_address(d->listener, wanted, G_SOCKET_TYPE_STREAM, G_SOCKET_PROTOCOL_TCP,
                                                       nullptr, &address, nullptr);
    g_object_unref(wanted);
    g_object_unref(loopback);
    if (!listens) {
        return 0;
    }
    const int port = g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(address));
    g_object_unref(address);
    d->acceptor = std::thread([this] { d->accept(); });
    return port;
}

void FaultProxy::setFaults(std::vector<ServerFaultRule> rules) {
    const support::Lock lock(d->mutex);
    d->rules = std::move(rules);
}

} // namespace tv
