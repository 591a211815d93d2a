#include "hosts/office/office_engine.h"

#include <com/sun/star/container/XSet.hpp>
#include <com/sun/star/ucb/UniversalContentBroker.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <dlfcn.h>
#include <rtl/bootstrap.hxx>

#include "hosts/office/document_loader.h"
#include "hosts/office/errors.h"
#include "hosts/office/installation.h"
#include "hosts/office/model.h"
#include "hosts/office/process_guard.h"
#include "hosts/office/profile.h"
#include "hosts/office/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::XComponentContext;
using Context = Reference<XComponentContext>;

/// LibreOfficeKit's own entry point: installation folder, profile URL; an office object or null.
using StartHook = void*(const char*, const char*);
using ContextFunction = Context();

automation::Error unusable(const std::string& reason) {
    return word_error(automation::RuntimeError::cannot_create_object,
                      "Cannot start LibreOffice from " + office_folder().string() + ": " + reason +
                          ". Install or reinstall the package libreoffice-writer-nogui.");
}

template <typename Function>
Function* function_of(void* library, const char* name) {
    if (void* address = dlsym(library, name)) return reinterpret_cast<Function*>(address);
    throw unusable(std::string("its library has no function ") + name);
}

void* load_library() {
    const std::filesystem::path library = office_folder() / "program/libmergedlo.so";
    // libmswordlo and its like resolve their symbols from this one through their own dependencies.
    if (void* handle = dlopen(library.c_str(), RTLD_LAZY | RTLD_LOCAL)) return handle;
    throw unusable(dlerror());
}

/// Takes services away that no conversion needs and no document should reach.
void strip(const Context& context) {
    // Documents may refer to anything; without these nothing can be fetched, whatever asks for it.
    const auto broker = css::ucb::UniversalContentBroker::create(context);
    for (const char* scheme : {"http", "https", "ftp", "vnd.sun.star.webdav", "vnd.sun.star.webdavs", "smb"})
        if (const auto provider = broker->queryContentProvider(to_uno(std::string(scheme) + "://localhost/"));
            provider.is())
            broker->deregisterContentProvider(provider, to_uno(scheme));
    // Checking signatures starts gpg processes and makes a key database for every document.
    const Reference<css::container::XSet> services(context->getServiceManager(), UNO_QUERY);
    try {
        services->remove(css::uno::Any(to_uno("com.sun.star.security.DocumentDigitalSignatures")));
    } catch (const css::container::NoSuchElementException&) {
        // A LibreOffice built without it.
    }
}

}  // namespace

struct OfficeEngine::Office {
    Context context;
    std::filesystem::path temporary_folder;
};

namespace {

Context start_office(const std::filesystem::path& private_folder) {
    const std::filesystem::path profile = private_folder / "office";
    write_profile(profile, office_folder());
    void* library = load_library();
    auto* start = function_of<StartHook>(library, "libreofficekit_hook_2");
    // Not part of LibreOfficeKit, which knows no page styles; hence the mangled name.
    auto* process_context =
        function_of<ContextFunction>(library, "_ZN10comphelper26getProcessComponentContextEv");
    rtl::Bootstrap::set(to_uno("CONFIGURATION_LAYERS"), to_uno(configuration_layers(office_folder())));
    // Else every start looks for extensions in the installation, and as root writes there.
    const std::string none = from_uno(file_url(private_folder / "extensions"));
    for (const char* folder : {"BUNDLED_EXTENSIONS", "UNO_SHARED_PACKAGES", "UNO_SHARED_PACKAGES_CACHE"})
        rtl::Bootstrap::set(to_uno(folder), to_uno(none));
    const std::string program = (office_folder() / "program").string();
    if (!start(program.c_str(), from_uno(file_url(profile)).c_str())) throw unusable("its start failed");
    Context context = process_context();
    if (!context.is()) throw unusable("it has no component context");
    strip(context);
    return context;
}

}  // namespace

OfficeEngine::OfficeEngine(std::unique_ptr<Office> office) : office_(std::move(office)) {}

OfficeEngine::~OfficeEngine() = default;

OfficeEngine& OfficeEngine::start(const std::filesystem::path& private_folder) {
    static OfficeEngine* engine = nullptr;  // never destroyed: LibreOffice's threads outlive static objects
    if (engine) return *engine;
    if (!std::filesystem::exists(office_folder() / "program/libmergedlo.so"))
        throw unusable("it is not installed there");
    const std::filesystem::path folder = std::filesystem::absolute(private_folder);
    try {
        const StartGuard start;  // ends last, when the handlers are the program's own again
        const CallGuard call(folder);
        auto office = std::make_unique<Office>(start_office(folder), folder);
        engine = new OfficeEngine(std::move(office));
        return *engine;
    } catch (const css::uno::Exception& exception) {
        throw unusable(from_uno(exception.Message));
    }
}

std::unique_ptr<TextDocument> OfficeEngine::open(const std::filesystem::path& path,
                                                 const std::string& open_password,
                                                 const std::string& write_password) {
    const std::filesystem::path absolute = std::filesystem::absolute(path);
    const CallGuard call(office_->temporary_folder);
    const auto component = load_document(office_->context, absolute, {open_password, write_password});
    return std::make_unique<TextDocument>(
        std::make_unique<TextDocument::Model>(component, absolute, office_->temporary_folder));
}

}  // namespace foliant::hosts::office
