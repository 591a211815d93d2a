#include "hosts/office/engine/file_stream.h"

#include <algorithm>
#include <cerrno>
#include <com/sun/star/io/IOException.hpp>
#include <com/sun/star/io/XSeekable.hpp>
#include <cppuhelper/implbase2.hxx>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

class FileStream : public cppu::WeakImplHelper2<css::io::XInputStream, css::io::XSeekable> {
  public:
    explicit FileStream(int descriptor) : descriptor_(descriptor) {}

    sal_Int32 SAL_CALL readBytes(css::uno::Sequence<sal_Int8>& bytes, sal_Int32 wanted) override {
        const sal_Int64 left = std::max<sal_Int64>(getLength() - position_, 0);
        const auto size = static_cast<sal_Int32>(std::min<sal_Int64>(std::max<sal_Int32>(wanted, 0), left));
        if (bytes.getLength() != size) bytes.realloc(size);
        sal_Int32 done = 0;
        while (done < size) {
            const ssize_t got = ::pread(descriptor_, bytes.getArray() + done,
                                        static_cast<std::size_t>(size - done), position_ + done);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) throw css::io::IOException(to_uno(std::strerror(errno)), {});
            if (got == 0) break;  // it was cut meanwhile
            done += static_cast<sal_Int32>(got);
        }
        if (done != size) bytes.realloc(done);
        position_ += done;
        return done;
    }
    sal_Int32 SAL_CALL readSomeBytes(css::uno::Sequence<sal_Int8>& bytes, sal_Int32 wanted) override {
        return readBytes(bytes, wanted);
    }
    void SAL_CALL skipBytes(sal_Int32 count) override { position_ += std::max<sal_Int32>(count, 0); }
    sal_Int32 SAL_CALL available() override {
        return static_cast<sal_Int32>(
            std::clamp<sal_Int64>(getLength() - position_, 0, std::numeric_limits<sal_Int32>::max()));
    }
    void SAL_CALL closeInput() override {}

    void SAL_CALL seek(sal_Int64 position) override {
        if (position < 0) throw css::lang::IllegalArgumentException(to_uno("before the beginning"), {}, 0);
        position_ = position;
    }
    sal_Int64 SAL_CALL getPosition() override { return position_; }
    sal_Int64 SAL_CALL getLength() override {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0) throw css::io::IOException(to_uno(std::strerror(errno)), {});
        return status.st_size;
    }

  private:
    int descriptor_;
    sal_Int64 position_ = 0;
};

}  // namespace

css::uno::Reference<css::io::XInputStream> stream_of(const DocumentFile& document) {
    return {static_cast<css::io::XInputStream*>(new FileStream(document.descriptor.get()))};
}

}  // namespace foliant::hosts::office
