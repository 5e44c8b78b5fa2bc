/**
 * Overrides xmlCreatePushParserCtxt(), so that pages of televisions can use named entities.
 *
 * Why: the engine knows `&nbsp;` and the like only in XHTML with a document type of the W3C. The document types of
 * HbbTV and CE-HTML have the same entities, but the engine has no setting for them. It learns a page's document type
 * from a callback that it passes to the XML parser's constructor. The override wraps that callback and translates the
 * type.
 */
#include <QByteArray>
#include <dlfcn.h>
#include <libxml/parser.h>

namespace {

externalSubsetSAXFunc engineExternalSubset = nullptr;

bool isTelevisionProfile(const xmlChar* publicId) {
    const QByteArray id = QByteArray(reinterpret_cast<const char*>(publicId)).toLower();
    return id.startsWith("-//hbbtv//") || id.contains("ce-html");
}

void externalSubset(void* context, const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
    const auto* xhtml = reinterpret_cast<const xmlChar*>("-//W3C//DTD XHTML 1.0 Strict//EN");
    engineExternalSubset(context, name, isTelevisionProfile(publicId) ? xhtml : publicId, systemId);
}

} // namespace

extern "C" __attribute__((visibility("default"))) xmlParserCtxtPtr
xmlCreatePushParserCtxt(xmlSAXHandlerPtr sax, void* userData, const char* chunk, int size, const char* filename) {
    static const auto original =
        reinterpret_cast<decltype(&xmlCreatePushParserCtxt)>(dlsym(RTLD_NEXT, "xmlCreatePushParserCtxt"));
    if (!sax || !sax->externalSubset) {
        return original(sax, userData, chunk, size, filename);
    }
    engineExternalSubset = sax->externalSubset;
    xmlSAXHandler translating = *sax; // The parser copies it.
    translating.externalSubset = externalSubset;
    return original(&translating, userData, chunk, size, filename);
}
