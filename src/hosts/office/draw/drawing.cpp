#include "hosts/office/draw/drawing.h"

#include <exception>
#include <new>
#include <utility>

#include "hosts/mapped_file.h"
#include "hosts/office/draw/page_sizes.h"
#include "hosts/office/engine/loaded_document.h"

namespace foliant::hosts::office {

std::string Drawing::finished(std::string pdf) const {
    const Application& application = loaded().application;
    try {
        const auto sizes = visio_page_sizes(MappedFile(loaded().file.descriptor.get()).bytes());
        if (!sizes) return pdf;
        // LibreOffice would give it one that is blank.
        if (sizes->empty())
            throw application.error(
                application.unreadable,
                loaded().file.path.string() +
                    " has no pages: it holds shapes for other drawings, or is damaged. Put its "
                    "shapes on the page of a drawing in Visio, and print that.");
        return with_page_sizes(std::move(pdf), *sizes);
    } catch (const automation::Error&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& reason) {
        throw application.error(application.command_failed, "Cannot print " + loaded().file.path.string() +
                                                                ": its pages cannot be given their sizes (" +
                                                                reason.what() + ").");
    }
}

}  // namespace foliant::hosts::office
