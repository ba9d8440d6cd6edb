#include "cli/StandardOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace zt::cli {

DescriptorOutput::DescriptorOutput(int fd) : fd_(fd) {
    setp(buffer_, buffer_ + sizeof buffer_);
}

DescriptorOutput::~DescriptorOutput() {
    sync();
}

int DescriptorOutput::overflow(int c) {
    if (sync() != 0)
        return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

int DescriptorOutput::sync() {
    const char* p = pbase();
    while (p < pptr()) {
        const ssize_t n = ::write(fd_, p, static_cast<std::size_t>(pptr() - p));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            if (error_ == 0)
                error_ = n < 0 ? errno : EIO;
            setp(buffer_, buffer_ + sizeof buffer_);
            return -1;
        }
        p += n;
    }
    setp(buffer_, buffer_ + sizeof buffer_);
    return 0;
}

void keepStandardStreamsOpen() {
    for (int fd = 0; fd <= 2; ++fd) {
        if (::fcntl(fd, F_GETFD) < 0 && errno == EBADF) {
            const int null = ::open("/dev/null", O_RDONLY);
            if (null >= 0 && null != fd) {
                ::dup2(null, fd);
                ::close(null);
            }
        }
    }
}

}  // namespace zt::cli
