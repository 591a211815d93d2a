#pragma once

#include <qpdf/Pipeline.hh>
#include <string>

#include "hosts/pending_file.h"

namespace foliant::hosts::acrobat::structure {

/// Where qpdf writes: an output of the host's, in large pieces.
class Output : public Pipeline {
  public:
    explicit Output(OutputFile& file);

    void write(unsigned char const* data, std::size_t size) override;
    void finish() override;

    /// Whether nothing was written so far.
    bool is_untouched() const noexcept { return !touched_; }

  private:
    OutputFile& file_;
    std::string piece_;
    bool touched_ = false;
};

}  // namespace foliant::hosts::acrobat::structure
