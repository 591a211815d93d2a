#include "hosts/office/print/text_runs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace foliant::hosts::office {

namespace {

// Level 2 has shorter strings and arrays than others; a line of text is far below.
constexpr std::size_t most_advances = 4000;

std::optional<double> number_in(std::string_view text) {
    double number = 0;
    const auto [end, problem] = std::from_chars(text.begin(), text.end(), number);
    if (problem != std::errc{} || end != text.end()) return std::nullopt;
    return number;
}

std::string written(double number) {
    constexpr int digits = 6;  // as poppler writes them
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.begin(), text.end(), number, std::chars_format::general, digits);
    return {text.begin(), result.ptr};
}

bool take(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

/// "(characters)\n[x y x y ...] Tj\n": how far each character moves on.
struct Run {
    std::string characters;  ///< as they are written, without the parentheses
    std::vector<double> advances;
};

std::optional<std::string_view> take_string(std::string_view& text) {
    if (!take(text, "(")) return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == ')') {
            const std::string_view characters = text.substr(0, i);
            text.remove_prefix(i + 1);
            return characters;
        } else if (text[i] == '(') {
            break;
        }
    }
    return std::nullopt;
}

std::optional<std::vector<double>> take_numbers(std::string_view& text) {
    if (!take(text, "[")) return std::nullopt;
    std::vector<double> numbers;
    while (true) {
        const std::size_t end = text.find_first_of("\n ]");
        if (end == std::string_view::npos) return std::nullopt;
        const auto number = number_in(text.substr(0, end));
        if (!number) return std::nullopt;
        numbers.push_back(*number);
        const bool last = text[end] == ']';
        text.remove_prefix(end + 1);
        if (last) return numbers;
    }
}

/// Takes a run, or nothing.
std::optional<Run> take_run(std::string_view& text) {
    std::string_view rest = text;
    const auto characters = take_string(rest);
    if (!characters || !take(rest, "\n")) return std::nullopt;
    auto advances = take_numbers(rest);
    if (!advances || advances->size() < 2 || !take(rest, " Tj\n")) return std::nullopt;
    text = rest;
    return Run{std::string(*characters), std::move(*advances)};
}

/// Takes "number TJm\n", a distance in thousandths of the font's size, or nothing.
std::optional<double> take_kerning(std::string_view& text) {
    constexpr std::string_view move = " TJm\n";
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos || !text.substr(0, end + 1).ends_with(move)) return std::nullopt;
    const auto number = number_in(text.substr(0, end + 1 - move.size()));
    if (number) text.remove_prefix(end + 1);
    return number;
}

class RunJoiner {
  public:
    std::string join(std::string_view text) {
        result_.reserve(text.size());
        while (!text.empty()) {
            if (text.front() == '(') {
                if (auto run = take_run(text)) {
                    take_what_follows(*run, text);
                    write(*run);
                    continue;
                }
            }
            copy_line(text);
        }
        return std::move(result_);
    }

  private:
    void copy_line(std::string_view& text) {
        const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        note_factor(line, " Tf\n", size_);
        note_factor(line, " Tz\n", scaling_);
        result_ += line;
        text.remove_prefix(line.size());
    }

    /// Notes the operand of an operator, when the line ends in that.
    static void note_factor(std::string_view line, std::string_view set, double& factor) {
        if (!line.ends_with(set)) return;
        line.remove_suffix(set.size());
        factor = number_in(line.substr(line.rfind(' ') + 1)).value_or(0);
    }

    void take_what_follows(Run& run, std::string_view& text) const {
        while (size_ != 0 && run.advances.size() < most_advances) {
            std::string_view rest = text;
            const auto kerning = take_kerning(rest);
            if (!kerning) return;
            const auto next = take_run(rest);
            if (!next) return;
            text = rest;
            constexpr double thousandth = 0.001;
            run.advances[run.advances.size() - 2] -= *kerning * thousandth * size_ * scaling_;
            run.characters += next->characters;
            run.advances.insert(run.advances.end(), next->advances.begin(), next->advances.end());
        }
    }

    void write(const Run& run) {
        result_ += "(" + run.characters + ")\n[";
        constexpr std::size_t numbers_a_line = 16;
        for (std::size_t i = 0; i < run.advances.size(); ++i) {
            if (i > 0) result_ += i % numbers_a_line == 0 ? '\n' : ' ';
            result_ += written(run.advances[i]);
        }
        result_ += "] Tj\n";
    }

    std::string result_;
    double size_ = 0;  // of the font; 0 when there is none yet
    double scaling_ = 1;
};

}  // namespace

std::string with_whole_text_runs(std::string_view postscript) {
    return RunJoiner().join(postscript);
}

}  // namespace foliant::hosts::office
