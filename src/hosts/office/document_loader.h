#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <filesystem>
#include <string>

namespace foliant::hosts::office {

/// The passwords that came with a request to open a document; either may be empty.
struct Passwords {
    std::string open;
    std::string write;
};

/// Loads the document at `path` (an absolute path) hidden and for reading only; see OfficeEngine::open for
/// what is promised and raised.
com::sun::star::uno::Reference<com::sun::star::lang::XComponent> load_document(
    const com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext>& office,
    const std::filesystem::path& path, const Passwords& passwords);

}  // namespace foliant::hosts::office
