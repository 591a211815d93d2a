#include "hosts/acrobat/structure/write_pdf.h"

#include <exception>
#include <memory>
#include <new>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDFWriter.hh>
#include <utility>

#include "hosts/acrobat/structure/output.h"

namespace foliant::hosts::acrobat::structure {

namespace {

/// Tells how far writing has come.
class Progress : public QPDFWriter::ProgressReporter {
  public:
    explicit Progress(std::function<void(int)> tell) : tell_(std::move(tell)) {}
    void reportProgress(int percent) override { tell_(percent); }

  private:
    std::function<void(int)> tell_;
};

void protect(QPDFWriter& writer, const Protection& protection) {
    const char* const password = protection.password.c_str();
    writer.setR6EncryptionParameters(password, password, true, true, true, true, true, true, qpdf_r3p_full,
                                     true);
}

/// The writer believes what a file says of its key's length; the reader has found out.
void mend_key_length(QPDF& pdf) {
    QPDFObjectHandle encryption = pdf.getTrailer().getKey("/Encrypt");
    if (!pdf.isEncrypted() || !encryption.isDictionary()) return;
    const auto bits = static_cast<long long>(pdf.getEncryptionKey().size()) * 8;
    encryption.replaceKey("/Length", QPDFObjectHandle::newInteger(bits));
}

void write(Pdf& pdf, const Writing& writing, Pipeline& pipeline) {
    mend_key_length(pdf.qpdf());
    QPDFWriter writer(pdf.qpdf());
    writer.setOutputPipeline(&pipeline);
    writer.setMinimumPDFVersion(pdf.version());
    writer.setLinearization(writing.is_linearised);
    if (pdf.protection()) protect(writer, *pdf.protection());
    if (writing.on_progress) writer.registerProgressReporter(std::make_shared<Progress>(writing.on_progress));
    writer.write();
}

}  // namespace

void write_pdf(Pdf& pdf, const Writing& writing, OutputFile& output) {
    pdf.settle();
    Output pipeline(output);
    try {
        write(pdf, writing, pipeline);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        // What is odd in a document may keep it from being ordered page by page, but not from being written.
        if (!writing.is_linearised || !pipeline.is_untouched()) throw;
        Writing plain = writing;
        plain.is_linearised = false;
        write(pdf, plain, pipeline);
    }
    pipeline.finish();
    pipeline.require_success();
}

std::string written_pdf(Pdf& pdf) {
    pdf.settle();
    std::string bytes;
    Pl_String pipeline("bytes", nullptr, bytes);
    QPDFWriter writer(pdf.qpdf());
    writer.setOutputPipeline(&pipeline);
    writer.setPreserveEncryption(false);
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.write();
    return bytes;
}

}  // namespace foliant::hosts::acrobat::structure
