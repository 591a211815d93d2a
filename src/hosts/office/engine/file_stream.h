#pragma once

#include <com/sun/star/io/XInputStream.hpp>

#include "hosts/document_file.h"

namespace foliant::hosts::office {

/// The content of a document for LibreOffice, which may not open any file of the user's: a stream that can be
/// read from any place, from its beginning. `document` has to outlive it.
com::sun::star::uno::Reference<com::sun::star::io::XInputStream> stream_of(const DocumentFile& document);

}  // namespace foliant::hosts::office
