#pragma once

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <vector>

namespace foliant::hosts::acrobat::structure {

/// The dictionary under `key` of another, made if there is none.
QPDFObjectHandle dictionary_in(QPDFObjectHandle parent, const std::string& key);

/// The same as an object of its own.
QPDFObjectHandle own_dictionary_in(QPDF& pdf, QPDFObjectHandle parent, const std::string& key);

/// Appends to the array under `key`, which is made if there is none.
void append_to(QPDFObjectHandle parent, const std::string& key, const std::vector<QPDFObjectHandle>& items);

/// The items of an array; the object itself for what is none; nothing for null.
std::vector<QPDFObjectHandle> items_of(QPDFObjectHandle object);

}  // namespace foliant::hosts::acrobat::structure
