#include "hosts/acrobat/structure/object_copier.h"

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>

#include "hosts/acrobat/structure/stream_bytes.h"

namespace foliant::hosts::acrobat::structure {

namespace {

std::uint64_t key_of(const QPDFObjectHandle& object) {
    const QPDFObjGen number = object.getObjGen();
    return (static_cast<std::uint64_t>(number.getObj()) << 32U) | static_cast<std::uint32_t>(number.getGen());
}

bool is_in(const std::vector<std::string>& names, const std::string& name) {
    for (const std::string& one : names)
        if (one == name) return true;
    return false;
}

/// Whether the entry may name a place in the same document.
bool is_destination(QPDFObjectHandle dictionary, const std::string& key) {
    return key == "/Dest" || (key == "/D" && dictionary.getKey("/S").isNameAndEquals("/GoTo"));
}

bool is_structure_number(const std::string& key) {
    return key == "/StructParents" || key == "/StructParent";
}

}  // namespace

void ObjectCopier::stand_in(QPDFObjectHandle original, QPDFObjectHandle copy) {
    copies_[key_of(original)] = copy;
}

bool ObjectCopier::has_copy(QPDFObjectHandle original) const {
    const auto place = original.isIndirect() ? copies_.find(key_of(original)) : copies_.end();
    return place != copies_.end() && !QPDFObjectHandle(place->second).isNull();
}

QPDFObjectHandle ObjectCopier::copy(QPDFObjectHandle original) {
    return original.isIndirect() ? copy_indirect(original) : copy_direct(original);
}

QPDFObjectHandle ObjectCopier::copy_indirect(QPDFObjectHandle original) {
    const auto [place, is_new] = copies_.try_emplace(key_of(original));
    if (!is_new) return place->second;
    QPDFObjectHandle copy;
    switch (original.getTypeCode()) {
        case ::ot_stream:
            copy = QPDFObjectHandle::newStream(&target_.qpdf());
            break;
        case ::ot_array:
            copy = target_.qpdf().makeIndirectObject(QPDFObjectHandle::newArray());
            break;
        case ::ot_dictionary:
            // Who refers to a node of the page tree means his document's, not what becomes of it here.
            if (original.getKey("/Type").isNameAndEquals("/Pages"))
                return place->second = QPDFObjectHandle::newNull();
            copy = target_.qpdf().makeIndirectObject(QPDFObjectHandle::newDictionary());
            break;
        default:
            return place->second = copy_direct(original);
    }
    place->second = copy;
    waiting_.emplace_back(original, copy);
    return copy;
}

QPDFObjectHandle ObjectCopier::copy_direct(QPDFObjectHandle original) {
    switch (original.getTypeCode()) {
        case ::ot_dictionary: {
            std::map<std::string, QPDFObjectHandle> entries = original.getDictAsMap();
            for (auto& [key, value] : entries)
                value = copy_entry(original, key, value);
            return QPDFObjectHandle::newDictionary(entries);
        }
        case ::ot_array: {
            std::vector<QPDFObjectHandle> items = original.getArrayAsVector();
            for (QPDFObjectHandle& item : items)
                item = copy(item);
            return QPDFObjectHandle::newArray(items);
        }
        default:
            return original.shallowCopy();
    }
}

QPDFObjectHandle ObjectCopier::copy_entry(QPDFObjectHandle dictionary, const std::string& key,
                                          QPDFObjectHandle value) {
    if (is_structure_number(key) && value.isInteger()) {
        return structure_offset < 0 ? QPDFObjectHandle::newNull()
                                    : QPDFObjectHandle::newInteger(value.getIntValue() + structure_offset);
    }
    if (is_destination(dictionary, key) && (value.isName() || value.isString())) {
        const std::string name = value.isName() ? value.getName().substr(1) : value.getStringValue();
        const auto renamed = destination_names.find(name);
        return QPDFObjectHandle::newString(renamed == destination_names.end() ? name : renamed->second);
    }
    return copy(value);
}

void ObjectCopier::copy_entries(QPDFObjectHandle original, QPDFObjectHandle target,
                                const std::vector<std::string>& but) {
    for (const auto& [key, value] : original.getDictAsMap()) {
        if (is_in(but, key)) continue;
        target.replaceKey(key, copy_entry(original, key, value));
    }
}

void ObjectCopier::fill(QPDFObjectHandle original, QPDFObjectHandle copied) {
    if (original.isStream()) return fill_stream(original, copied);
    if (original.isDictionary()) return copy_entries(original, copied);
    std::vector<QPDFObjectHandle> items = original.getArrayAsVector();
    for (QPDFObjectHandle& item : items)
        item = copy(item);
    copied.setArrayFromVector(items);
}

void ObjectCopier::fill_stream(QPDFObjectHandle original, QPDFObjectHandle copied) {
    QPDFObjectHandle dictionary = original.getDict();
    copy_entries(dictionary, copied.getDict(), {"/Length", "/Filter", "/DecodeParms"});
    QPDFObjectHandle filter = copy(dictionary.getKey("/Filter"));
    const QPDFObjectHandle parameters = copy(dictionary.getKey("/DecodeParms"));
    // What has a filter keeps it, and its bytes: they need not be sound to be copied.
    if (!filter.isNull()) copied.setFilterOnWrite(false);
    if (const auto bytes = stream_bytes(source_, original)) {
        // The buffer is only ever read.
        auto* const begin = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes->data()));
        copied.replaceStreamData(std::make_shared<Buffer>(begin, bytes->size()), filter, parameters);
        target_.keep(source_.file());
        return;
    }
    const auto pass_on = [source = source_.shared_from_this(), original](Pipeline* pipeline) mutable {
        original.pipeStreamData(pipeline, 0, qpdf_dl_none, true);
    };
    copied.replaceStreamData(std::function<void(Pipeline*)>(pass_on), filter, parameters);
}

void ObjectCopier::finish() {
    while (!waiting_.empty()) {
        const auto [original, copied] = waiting_.back();
        waiting_.pop_back();
        fill(original, copied);
    }
}

}  // namespace foliant::hosts::acrobat::structure
