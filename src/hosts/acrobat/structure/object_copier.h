#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::structure {

/// Copies objects of one document into another, with all that they refer to. What is referred to twice is
/// copied once; chains and loops of references take no stack.
///
/// Streams are not read: the target's own refer to the bytes of the source's file, or to the source.
class ObjectCopier {
  public:
    ObjectCopier(Pdf& source, Pdf& target) : source_(source), target_(target) {}
    ObjectCopier(const ObjectCopier&) = delete;
    ObjectCopier& operator=(const ObjectCopier&) = delete;

    /// What stands in the target for an object of the source; null for one that is not to be copied.
    void stand_in(QPDFObjectHandle original, QPDFObjectHandle copy);
    /// Whether the object was met and is copied, or something stands in for it.
    bool has_copy(QPDFObjectHandle original) const;

    /// The copy of an object, a direct or an indirect one. What it refers to is complete after `finish`.
    QPDFObjectHandle copy(QPDFObjectHandle original);

    /// Puts the entries of a dictionary of the source into one of the target, all but those named.
    void copy_entries(QPDFObjectHandle original, QPDFObjectHandle target,
                      const std::vector<std::string>& but = {});

    /// Copies everything that what was copied so far refers to.
    void finish();

    /// What named destinations of the source are called in the target, where that differs.
    std::map<std::string, std::string> destination_names;
    /// What is added to the numbers by which pages and annotations are found in the structure tree; nothing
    /// of that kind is copied when it is negative.
    int structure_offset = -1;

  private:
    QPDFObjectHandle copy_indirect(QPDFObjectHandle original);
    QPDFObjectHandle copy_direct(QPDFObjectHandle original);
    QPDFObjectHandle copy_entry(QPDFObjectHandle dictionary, const std::string& key, QPDFObjectHandle value);
    void fill(QPDFObjectHandle original, QPDFObjectHandle copied);
    void fill_stream(QPDFObjectHandle original, QPDFObjectHandle copied);

    Pdf& source_;
    Pdf& target_;
    std::unordered_map<std::uint64_t, QPDFObjectHandle> copies_;
    std::vector<std::pair<QPDFObjectHandle, QPDFObjectHandle>> waiting_;  ///< to be filled
};

}  // namespace foliant::hosts::acrobat::structure
