// Both kinds of channel are file descriptors that never block; a wait is one call of poll.
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "host/line/channel.h"
#include "host/line/serial.h"
#include "host/line/tcp.h"
#include "host/system/console.h"

namespace host {
namespace {

std::error_code LastError() { return {errno, std::system_category()}; }

bool IsForNow(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

class Descriptor : public Channel {
 public:
  // closed: what messages say when the other end is gone.
  Descriptor(int descriptor, const char* closed) : descriptor_(descriptor), closed_(closed) {}
  ~Descriptor() override { close(descriptor_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  Transfer Receive(std::span<char> into, Clock::time_point deadline) final;
  Transfer Send(std::span<const char> bytes, Clock::time_point deadline) final;

 protected:
  int Number() const { return descriptor_; }

 private:
  virtual ssize_t WriteSome(std::span<const char> bytes) {
    return write(descriptor_, bytes.data(), bytes.size());
  }
  // Until there may be something to do; at once when the deadline has passed.
  void Wait(short event, Clock::time_point deadline) const;

  int descriptor_;
  const char* closed_;
};

void Descriptor::Wait(short event, Clock::time_point deadline) const {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  if (left.count() <= 0) return;
  pollfd wanted{descriptor_, event, 0};
  poll(&wanted, 1, static_cast<int>(left.count()));
}

// A line is slower than a program: what was asked for is hardly there at once, so that a read
// before the wait would find nothing.
Transfer Descriptor::Receive(std::span<char> into, Clock::time_point deadline) {
  for (;;) {
    Wait(POLLIN, deadline);
    const ssize_t count = read(descriptor_, into.data(), into.size());
    if (count > 0) return {static_cast<std::size_t>(count), {}};
    if (count == 0) return {0, closed_};
    if (!IsForNow(errno)) return {0, ErrorText(LastError())};
    if (Clock::now() >= deadline) return {};
  }
}

Transfer Descriptor::Send(std::span<const char> bytes, Clock::time_point deadline) {
  Transfer sent;
  while (sent.count < bytes.size()) {
    const ssize_t count = WriteSome(bytes.subspan(sent.count));
    if (count > 0) {
      sent.count += static_cast<std::size_t>(count);
      continue;
    }
    if (count < 0 && !IsForNow(errno)) sent.trouble = ErrorText(LastError());
    if (!sent.trouble.empty() || Clock::now() >= deadline) break;
    Wait(POLLOUT, deadline);
  }
  return sent;
}

int OpenFile(const std::string& device) {
  const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) throw OpenError(device, LastError());
  return descriptor;
}

// The far end of a pseudo terminal keeps it alive, and with it a claim that a killed program left.
bool IsPseudoTerminal(int device) {
  constexpr unsigned kFirstMajor = 136, kLastMajor = 143;
  struct stat status = {};
  fstat(device, &status);
  return major(status.st_rdev) >= kFirstMajor && major(status.st_rdev) <= kLastMajor;
}

// Keeps other programs from using an open device. The file lock is for programs that look at it,
// this one first of all; the terminal's own claim is for all others.
class Claim {
 public:
  Claim(int device, const std::string& name) : device_(device) {
    if (flock(device_, LOCK_EX | LOCK_NB) != 0) throw BusyError(name);
    if (!IsPseudoTerminal(device_)) ioctl(device_, TIOCEXCL);
  }
  ~Claim() {
    if (!IsPseudoTerminal(device_)) ioctl(device_, TIOCNXCL);
  }
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;

 private:
  int device_;
};

class Device final : public Descriptor {
 public:
  explicit Device(const std::string& name);
  std::string Set(const SerialSettings& settings) override;

 private:
  Claim claim_;
};

Device::Device(const std::string& name)
    : Descriptor(OpenFile(name), "the device is gone"), claim_(Number(), name) {
  termios mode{};
  if (tcgetattr(Number(), &mode) != 0) throw OpenError(name, LastError());
  cfmakeraw(&mode);
  mode.c_iflag |= IGNPAR;  // a byte with a wrong parity is lost, and its frame with it
  mode.c_cflag |= CREAD | CLOCAL;
  if (tcsetattr(Number(), TCSANOW, &mode) != 0) throw OpenError(name, LastError());
}

std::string Device::Set(const SerialSettings& settings) {
  termios mode{};
  std::error_code error;
  if (tcgetattr(Number(), &mode) != 0) return ErrorText(LastError());
  ForEachOption(settings, [&](const auto& option) {
    if (!error) option.store(mode, error);
  });
  // A pseudo terminal keeps no parity, which the C library calls an error when nothing else
  // changes.
  const bool set = error || tcsetattr(Number(), TCSANOW, &mode) == 0 || IsPseudoTerminal(Number());
  if (!set) error = LastError();
  return error ? ErrorText(error) : "";
}

class Connection final : public Descriptor {
 public:
  explicit Connection(int socket) : Descriptor(socket, "the gateway closed the connection") {}

 private:
  // A plain write to a closed connection would end the program.
  ssize_t WriteSome(std::span<const char> bytes) override {
    return send(Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  }
};

}  // namespace

std::unique_ptr<Channel> OpenDevice(const std::string& device) {
  return std::make_unique<Device>(device);
}

std::unique_ptr<Channel> OpenConnection(const TcpAddress& address) {
  asio::io_context context;
  asio::ip::tcp::socket socket = Connect(context, address);
  socket.native_non_blocking(true);
  return std::make_unique<Connection>(socket.release());
}

}  // namespace host
