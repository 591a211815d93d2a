#include "hosts/acrobat/splice/body.h"

namespace foliant::hosts::acrobat::splice {

std::string& Body::begin_object(std::int32_t number) {
    offsets_[static_cast<std::size_t>(number)] = end();
    text_ += std::to_string(number);
    text_ += " 0 obj\n";
    return text_;
}

void Body::put_data(std::string_view data) {
    text_ += "\nstream\n";
    data_.push_back({text_.size(), data});
    data_bytes_ += data.size();
    text_ += "\nendstream";
}

void Body::put_object(std::int32_t number, std::string_view text) {
    begin_object(number) += text;
    end_object();
}

void Body::write(const Write& write) const {
    std::size_t written = 0;
    for (const Data& data : data_) {
        write(std::string_view(text_).substr(written, data.at - written));
        write(data.bytes);
        written = data.at;
    }
    write(std::string_view(text_).substr(written));
}

void Body::return_to(const Mark& mark) {
    text_.resize(mark.text);
    data_.resize(mark.data);
    data_bytes_ = mark.data_bytes;
    offsets_.resize(mark.numbers);
}

}  // namespace foliant::hosts::acrobat::splice
