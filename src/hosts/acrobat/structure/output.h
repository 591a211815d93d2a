#pragma once

#include <exception>
#include <qpdf/Pipeline.hh>
#include <string>
#include <string_view>

#include "hosts/pending_file.h"

namespace foliant::hosts::acrobat::structure {

/// Where qpdf writes: an output of the host's, in large pieces. qpdf finishes its pipelines in destructors, from which
/// nothing may be thrown: what the output throws is kept until everything is done, and no more is written.
class Output : public Pipeline {
  public:
    explicit Output(OutputFile& file);

    void write(unsigned char const* data, std::size_t size) override;
    void finish() override;

    /// Throws what the output has thrown.
    void require_success() const;

    /// Whether nothing was written so far.
    bool is_untouched() const noexcept { return !touched_; }

  private:
    void pass_on(std::string_view bytes) noexcept;

    OutputFile& file_;
    std::string piece_;
    bool touched_ = false;
    std::exception_ptr failure_;
};

}  // namespace foliant::hosts::acrobat::structure
