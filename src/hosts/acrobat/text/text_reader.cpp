#include "hosts/acrobat/text/text_reader.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace foliant::hosts::acrobat::text {

namespace {

constexpr int most_threads = 4;
constexpr int most_pages_ahead = 32;
constexpr std::size_t most_bytes_ahead = std::size_t{64} << 20U;

int thread_count() {
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, most_threads);
}

}  // namespace

/// Reads a page and those behind it. Whoever takes the pages reads along instead of waiting, so that there are not
/// more readers than processors, and nobody is woken for each page.
class TextReader::ReadAhead {
  public:
    /// `file` is for whoever takes the pages, and outlives this.
    ReadAhead(PageSource& file, const Bytes& bytes, const std::string& password, int first)
        : file_(file), next_(first), wanted_(first), page_count_(file.page_count()) {
        for (int i = 1; i < thread_count(); ++i)
            threads_.emplace_back([this, bytes, password] { read_along(bytes, password); });
    }
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    ~ReadAhead() {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        has_room_.notify_all();
        for (std::thread& thread : threads_)
            thread.join();
    }

    /// Whether the page is the one that comes next, so that it is on its way.
    bool is_next(int page) const noexcept { return page == wanted_; }

    std::shared_ptr<const PageText> take(int page) {
        std::unique_lock lock(mutex_);
        while (!read_.contains(page)) {
            if (has_room())
                read(next_++, file_, lock);
            else
                is_read_.wait(lock, [&] { return read_.contains(page); });
        }
        Result result = std::move(read_.extract(page).mapped());
        wanted_ = page + 1;
        if (result.text) bytes_ahead_ -= result.text->size_in_memory();
        // Who waits for room is woken for several pages at a time.
        const bool is_worth_waking = next_ < wanted_ + most_pages_ahead / 2;
        lock.unlock();
        if (is_worth_waking) has_room_.notify_all();
        if (result.failure) std::rethrow_exception(result.failure);
        return result.text;
    }

  private:
    struct Result {
        std::shared_ptr<const PageText> text;
        std::exception_ptr failure;
    };

    /// Whether there is a page to read, and room for it.
    bool has_room() const {
        const bool is_near = next_ < wanted_ + most_pages_ahead && bytes_ahead_ < most_bytes_ahead;
        return next_ < page_count_ && (is_near || next_ == wanted_);
    }

    void read_along(const Bytes& bytes, const std::string& password) {
        std::unique_ptr<PageSource> file;
        try {
            file = open_pages(bytes, password);
        } catch (...) {  // it could be opened before, so that memory is short: the others read on
            return;
        }
        std::unique_lock lock(mutex_);
        for (;;) {
            has_room_.wait(lock, [&] { return ended_ || next_ >= page_count_ || has_room(); });
            if (ended_ || next_ >= page_count_) return;
            read(next_++, *file, lock);
        }
    }

    /// Reads a page that nobody else reads, without the lock.
    void read(int page, PageSource& file, std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        Result result;
        try {
            result.text = std::make_shared<const PageText>(file.read(page));
        } catch (...) {
            result.failure = std::current_exception();
        }
        lock.lock();
        if (result.text) bytes_ahead_ += result.text->size_in_memory();
        read_[page] = std::move(result);
        if (page == wanted_) is_read_.notify_one();
    }

    PageSource& file_;
    std::mutex mutex_;
    std::condition_variable is_read_;   ///< the page that is wanted
    std::condition_variable has_room_;  ///< or it is time to end
    std::map<int, Result> read_;
    std::size_t bytes_ahead_ = 0;
    int next_;    ///< to be read by whoever is free
    int wanted_;  ///< to be asked for
    int page_count_;
    bool ended_ = false;
    std::vector<std::thread> threads_;
};

TextReader::TextReader(Bytes bytes, std::string password)
    : bytes_(std::move(bytes)),
      password_(std::move(password)),
      file_(open_pages(bytes_, password_)),
      page_count_(file_->page_count()) {}

TextReader::~TextReader() = default;

int TextReader::page_count() const noexcept {
    return page_count_;
}

std::shared_ptr<const PageText> TextReader::page(int number) {
    if (number == last_ && last_text_) return last_text_;
    const bool follows = number == last_ + 1;
    if (ahead_ && !ahead_->is_next(number)) ahead_.reset();
    if (!ahead_ && follows && number + 1 < page_count_)
        ahead_ = std::make_unique<ReadAhead>(*file_, bytes_, password_, number);
    last_text_ = ahead_ ? ahead_->take(number) : std::make_shared<const PageText>(file_->read(number));
    last_ = number;
    return last_text_;
}

}  // namespace foliant::hosts::acrobat::text
