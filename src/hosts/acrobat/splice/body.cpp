#include "hosts/acrobat/splice/body.h"

#include <algorithm>

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

void Body::list(std::vector<Object>& objects) const {
    objects.resize(std::max(objects.size(), offsets_.size()));
    std::vector<std::size_t> numbers;
    for (std::size_t number = 0; number < offsets_.size(); ++number)
        if (offsets_[number] >= begin_) numbers.push_back(number);
    std::ranges::sort(numbers, {}, [&](std::size_t number) { return offsets_[number]; });
    auto data = data_.begin();
    std::size_t before = 0;  // bytes of data
    std::size_t at = 0;      // in the text
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const bool has_data = data != data_.end() && (i + 1 == numbers.size() ||
                                                      data->at + before < offsets_[numbers[i + 1]] - begin_);
        if (has_data) before += data->bytes.size();
        const std::size_t end =
            i + 1 == numbers.size() ? text_.size() : offsets_[numbers[i + 1]] - begin_ - before;
        const std::string_view text = std::string_view(text_).substr(at, end - at);
        if (has_data) {
            objects[numbers[i]] = {text.substr(0, data->at - at), data->bytes, text.substr(data->at - at)};
            ++data;
        } else {
            objects[numbers[i]] = {text};
        }
        at = end;
    }
}

void Body::return_to(const Mark& mark) {
    text_.resize(mark.text);
    data_.resize(mark.data);
    data_bytes_ = mark.data_bytes;
    offsets_.resize(mark.numbers);
}

}  // namespace foliant::hosts::acrobat::splice
