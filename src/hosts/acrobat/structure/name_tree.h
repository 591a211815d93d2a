#pragma once

#include <map>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>

namespace foliant::hosts::acrobat::structure {

/// What names stand for, and numbers, as trees of the file have it.
using Names = std::map<std::string, QPDFObjectHandle>;
using Numbers = std::map<long long, QPDFObjectHandle>;

/// The entries of a name tree; none for what is no tree. A node that is met again is passed over.
Names read_name_tree(QPDFObjectHandle root);
/// The same for a number tree.
Numbers read_number_tree(QPDFObjectHandle root);

/// A new tree with these entries, an indirect object.
QPDFObjectHandle write_name_tree(QPDF& pdf, const Names& names);
QPDFObjectHandle write_number_tree(QPDF& pdf, const Numbers& numbers);

}  // namespace foliant::hosts::acrobat::structure
