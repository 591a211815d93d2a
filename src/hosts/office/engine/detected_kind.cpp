#include "hosts/office/engine/detected_kind.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XTypeDetection.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>

#include "hosts/office/engine/file_stream.h"
#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::container::XNameAccess;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

/// The properties of a type or a filter, as LibreOffice's registry of them holds them.
std::string registry_property(const Reference<XNameAccess>& registry, const rtl::OUString& name,
                              std::string_view property) {
    css::uno::Sequence<css::beans::PropertyValue> properties;
    registry->getByName(name) >>= properties;
    rtl::OUString text;
    for (sal_Int32 i = 0; i < properties.getLength(); ++i)
        if (properties.getConstArray()[i].Name == to_uno(property))
            properties.getConstArray()[i].Value >>= text;
    return from_uno(text);
}

}  // namespace

std::optional<DetectedKind> detect_kind(const DocumentFile& file, const Office& office) {
    const auto manager = office.context->getServiceManager();
    const auto service = [&](std::string_view name) {
        return manager->createInstanceWithContext(to_uno(name), office.context);
    };
    const Reference<css::document::XTypeDetection> detection(service("com.sun.star.document.TypeDetection"),
                                                             UNO_QUERY_THROW);
    auto descriptor = uno_sequence<css::beans::PropertyValue>(
        {uno_argument("URL", to_uno("private:stream")), uno_argument("InputStream", stream_of(file))});
    const rtl::OUString type = detection->queryTypeByDescriptor(descriptor, true);
    if (type.isEmpty()) return {};
    const std::string filter =
        registry_property(Reference<XNameAccess>(detection, UNO_QUERY_THROW), type, "PreferredFilter");
    if (filter.empty() || filter.starts_with("Text") || filter == "WordPerfect") return {};
    const Reference<XNameAccess> filters(service("com.sun.star.document.FilterFactory"), UNO_QUERY_THROW);
    return DetectedKind{filter, registry_property(filters, to_uno(filter), "DocumentService")};
}

}  // namespace foliant::hosts::office
