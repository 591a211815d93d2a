#pragma once

#include <vector>

#include "hosts/acrobat/structure/insertion.h"
#include "hosts/acrobat/structure/name_tree.h"

namespace foliant::hosts::acrobat::structure {

/// The tags of a document: the tree that says what its parts are, and the numbers by which pages and
/// annotations are found in it. Those of documents that are inserted whole come with them.
class StructureTags {
  public:
    explicit StructureTags(Pdf& pdf) : pdf_(pdf) {}

    /// Tells the copier by how much numbers are raised; before anything is copied.
    void prepare(const Insertion& insertion);
    void add(const Insertion& insertion);
    void settle();

  private:
    QPDFObjectHandle root();
    void read();

    Pdf& pdf_;
    bool is_read_ = false;
    bool is_changed_ = false;
    long long next_ = 0;  ///< the first number that is free
    Numbers parents_;
    std::vector<QPDFObjectHandle> kids_;
};

}  // namespace foliant::hosts::acrobat::structure
