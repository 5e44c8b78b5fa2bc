#include "http/TrustedCertificates.h"

#include "gst/GstPointer.h"

#include <gio/gio.h>

namespace {

/** Accepts a certificate that either database trusts. */
struct EitherDatabase {
    GTlsDatabase parent;
    GTlsDatabase* first;
    GTlsDatabase* second;
};

struct EitherDatabaseClass {
    GTlsDatabaseClass parent;
};

G_DEFINE_TYPE(EitherDatabase, either_database, G_TYPE_TLS_DATABASE)

GTlsCertificateFlags verifyChain(GTlsDatabase* self, GTlsCertificate* chain, const gchar* purpose,
                                 GSocketConnectable* identity, GTlsInteraction* interaction,
                                 GTlsDatabaseVerifyFlags flags, GCancellable* cancellable, GError** error) {
    auto* either = reinterpret_cast<EitherDatabase*>(self);
    const GTlsCertificateFlags doubts =
        g_tls_database_verify_chain(either->first, chain, purpose, identity, interaction, flags, cancellable, nullptr);
    if (doubts == 0) {
        return doubts;
    }
    return g_tls_database_verify_chain(either->second, chain, purpose, identity, interaction, flags, cancellable,
                                       error);
}

void finalize(GObject* object) {
    auto* either = reinterpret_cast<EitherDatabase*>(object);
    g_clear_object(&either->first);
    g_clear_object(&either->second);
    G_OBJECT_CLASS(either_database_parent_class)->finalize(object);
}

void either_database_class_init(EitherDatabaseClass* type) {
    G_OBJECT_CLASS(type)->finalize = &finalize;
    G_TLS_DATABASE_CLASS(type)->verify_chain = &verifyChain;
}

void either_database_init(EitherDatabase* /*either*/) {}

} // namespace

namespace media {

using support::Failure;

support::Result<void, std::string> trustCertificates(const std::string& pemFile) {
    GTlsBackend* backend = g_tls_backend_get_default();
    if (!g_tls_backend_supports_tls(backend)) {
        return Failure{std::string("there is no TLS on this machine; install the package glib-networking")};
    }
    const TextPtr path(g_canonicalize_filename(pemFile.c_str(), nullptr));
    GError* reason = nullptr;
    GTlsDatabase* added = g_tls_file_database_new(path.get(), &reason);
    const ErrorPtr error(reason);
    if (!added) {
        return Failure{"the certificates of " + pemFile + " cannot be used: " + error->message};
    }
    auto* either = static_cast<EitherDatabase*>(g_object_new(either_database_get_type(), nullptr));
    either->first = g_tls_backend_get_default_database(backend);
    either->second = added;
    g_tls_backend_set_default_database(backend, &either->parent);
    g_object_unref(either);
    return {};
}

} // namespace media
