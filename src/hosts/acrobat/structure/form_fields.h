#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "hosts/acrobat/structure/insertion.h"

namespace foliant::hosts::acrobat::structure {

/// The form of a document: fields that bear the same name would be one field, so those that come get others.
class FormFields {
  public:
    explicit FormFields(Pdf& pdf) : pdf_(pdf) {}

    /// Adds the fields whose widgets were copied. To be called when the pages' objects are complete; what it
    /// copies besides is not.
    void add(const Insertion& insertion);

  private:
    using FontNames = std::map<std::string, std::string>;

    QPDFObjectHandle form();
    void note_names();
    void add_field(QPDFObjectHandle original, QPDFObjectHandle source_form, const Insertion& insertion);
    FontNames add_resources(QPDFObjectHandle source_form, const Insertion& insertion);
    void merge_flags(QPDFObjectHandle source_form);

    Pdf& pdf_;
    std::optional<std::set<std::string>> names_;  ///< of the fields at the top, once they are known
};

}  // namespace foliant::hosts::acrobat::structure
