#pragma once

#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>

namespace foliant::hosts::office {

/// A document of qpdf's as a PDF, its streams as they are.
inline std::string written_pdf(QPDF& document) {
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setCompressStreams(false);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

}  // namespace foliant::hosts::office
