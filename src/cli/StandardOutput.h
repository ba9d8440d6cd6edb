#pragma once
// Standard output as the commands use it, with what went wrong kept: a full
// disk, /dev/full or a closed stream must end the program with a message,
// not with an exit code of 0 and part of the output lost.

#include <streambuf>

namespace zt::cli {

// A buffered stream over a file descriptor that remembers the errno of the
// first write that failed.
class DescriptorOutput : public std::streambuf {
public:
    explicit DescriptorOutput(int fd);
    ~DescriptorOutput() override;
    DescriptorOutput(const DescriptorOutput&) = delete;
    DescriptorOutput& operator=(const DescriptorOutput&) = delete;

    // 0 while every write has succeeded.
    int error() const { return error_; }

protected:
    int overflow(int c) override;
    int sync() override;

private:
    int fd_;
    int error_ = 0;
    char buffer_[8192];
};

// Opens /dev/null, for reading only, in place of a closed standard stream,
// so that a file the command opens cannot take its number and receive what
// was meant for the terminal, while writes to it still fail.
void keepStandardStreamsOpen();

}  // namespace zt::cli
