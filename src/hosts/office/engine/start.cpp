#include "hosts/office/engine/start.h"

#include <algorithm>
#include <com/sun/star/configuration/theDefaultProvider.hpp>
#include <com/sun/star/container/XSet.hpp>
#include <com/sun/star/ucb/UniversalContentBroker.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>
#include <dlfcn.h>
#include <new>
#include <rtl/bootstrap.hxx>
#include <stdexcept>
#include <string>
#include <string_view>

#include "hosts/missing_engine.h"
#include "hosts/office/engine/installation.h"
#include "hosts/office/engine/office.h"
#include "hosts/office/engine/print_mode.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/profile.h"
#include "hosts/office/engine/stand_still.h"
#include "hosts/office/engine/system_paper.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/text_encoding.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::XComponentContext;
using Context = Reference<XComponentContext>;

/// LibreOfficeKit's own entry point: installation folder, profile URL; an office object or null.
using StartHook = void*(const char*, const char*);
using ContextFunction = Context();

/// Why LibreOffice cannot be used.
struct Unusable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

template <typename Function>
Function* function_of(void* library, const char* name) {
    if (void* address = dlsym(library, name)) return reinterpret_cast<Function*>(address);
    throw Unusable(std::string("its library has no function ") + name);
}

void* load_library() {
    const std::filesystem::path library = office_folder() / "program/libmergedlo.so";
    // libmswordlo and its like resolve their symbols from this one through their own dependencies.
    if (void* handle = dlopen(library.c_str(), RTLD_LAZY | RTLD_LOCAL)) return handle;
    throw Unusable(dlerror());
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

/// The tag of the user's locale ("de-DE" for "de_DE.UTF-8"), "" where none was chosen.
std::string locale_tag() {
    const std::string_view name = character_locale();
    std::string tag(name.substr(0, name.find_first_of(".@")));
    if (tag == "C" || tag == "POSIX") return "";
    std::ranges::replace(tag, '_', '-');
    return tag;
}

/// Gives documents what they do not say themselves, forms of dates and paper, as the user has them. LibreOfficeKit has set
/// LibreOffice up for the United States, whose paper is Letter. Of a user's locale it takes the paper as well; where the
/// system has another one, it is that which counts: English of no country has A4.
void use_locale_of_the_user(const Context& context) {
    const bool has_its_paper = paper_of_locale() == system_paper();
    if (!has_its_paper && system_paper() == Paper::letter) return;
    const auto provider = css::configuration::theDefaultProvider::get(context);
    css::uno::Sequence<css::uno::Any> arguments(1);
    arguments.getArray()[0] <<= uno_argument("nodepath", to_uno("/org.openoffice.Setup/L10N"));
    const Reference<css::beans::XPropertySet> locales(
        provider->createInstanceWithArguments(to_uno("com.sun.star.configuration.ConfigurationUpdateAccess"),
                                              arguments),
        css::uno::UNO_QUERY_THROW);
    // Told no locale, LibreOffice looks for the paper itself, and starts a program for that where it may.
    set_uno_property(locales, "ooSetupSystemLocale", to_uno(has_its_paper ? locale_tag() : "en"));
    Reference<css::util::XChangesBatch>(locales, css::uno::UNO_QUERY_THROW)->commitChanges();
}

/// What LibreOffice 7.4 allocates at least until it has opened a document, in bytes.
constexpr std::size_t needed_to_start = std::size_t{40} << 20U;

/// Raises bad_alloc where the limit on memory leaves LibreOffice less than it starts with: given less, some of
/// its threads end and others wait for them for ever.
void require_memory() {
    ::operator delete(::operator new(needed_to_start));
}

Context start_engine(const std::filesystem::path& private_folder, const Application& application) {
    require_memory();
    const std::filesystem::path profile = private_folder / "office";
    write_profile(profile, office_folder(), application);
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
    if (!start(program.c_str(), from_uno(file_url(profile)).c_str())) throw Unusable("its start failed");
    Context context = process_context();
    if (!context.is()) throw Unusable("it has no component context");
    StandStill::prepare(library);
    PrintMode::prepare(library);
    strip(context);
    use_locale_of_the_user(context);
    return context;
}

automation::Error unusable(const Application& application, const std::string& reason) {
    return missing_engine(application.name, "LibreOffice in " + office_folder().string(), reason,
                          application.package);
}

}  // namespace

void require_office(const Application& application) {
    const std::filesystem::path program = office_folder() / "program";
    for (const std::string_view library : {std::string_view("libmergedlo.so"), application.library})
        if (!std::filesystem::exists(program / library))
            throw unusable(application, "its " + std::string(library) + " is not installed there");
}

const Office& start_office(const std::filesystem::path& private_folder, const Application& application) {
    static const Office* office = nullptr;  // never destroyed: LibreOffice's threads outlive static objects
    if (office) return *office;
    require_office(application);
    const std::filesystem::path folder = std::filesystem::absolute(private_folder);
    try {
        const StartGuard start(folder);  // ends last, when the handlers are the program's own again
        const CallGuard call(folder);
        return *(office = new Office{start_engine(folder, application), folder});
    } catch (const Unusable& reason) {
        throw unusable(application, reason.what());
    } catch (const css::uno::Exception& exception) {
        throw unusable(application, from_uno(exception.Message));
    }
}

}  // namespace foliant::hosts::office
