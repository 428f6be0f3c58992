#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "simulator/serve/server.h"
#include "simulator/serve/session.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;
using asio::posix::stream_descriptor;

[[noreturn]] void Fail(const std::string& what) {
  const std::error_code code(errno, std::generic_category());
  throw std::runtime_error(what + " (" + code.message() + "): serve a TCP port instead.");
}

// The end of the pseudo terminal that the instrument has.
int OpenMaster() {
  const int master = posix_openpt(O_RDWR | O_NOCTTY);
  if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
    Fail("A pseudo terminal can't be opened");
  }
  return master;
}

std::string DeviceOf(int master) {
  char name[128];
  if (ptsname_r(master, name, sizeof name) != 0) Fail("The pseudo terminal has no name");
  return name;
}

// A lock on the device tells others that an instrument answers there. Of the kinds of locks it is
// the one that no host takes and that belongs to one opening of the file.
struct flock WholeFile() {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return lock;
}

// Whether an instrument answers behind a link; a link that a killed one left leads nowhere, or to a
// terminal that is another program's by now.
bool IsServed(const fs::path& link) {
  const int device = open(link.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (device < 0) return errno == EACCES || errno == EBUSY;
  struct flock lock = WholeFile();
  const bool locked = fcntl(device, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
  close(device);
  return locked;
}

// Kept open, so that the line stays when a host closes it. Every byte passes as it is.
int OpenSlave(const std::string& device) {
  const int slave = open(device.c_str(), O_RDWR | O_NOCTTY);
  if (slave < 0) Fail("The pseudo terminal " + device + " can't be opened");
  struct flock lock = WholeFile();
  fcntl(slave, F_OFD_SETLK, &lock);  // without it a second instrument takes the link over
  termios line{};
  tcgetattr(slave, &line);
  cfmakeraw(&line);
  tcsetattr(slave, TCSANOW, &line);
  return slave;
}

// A symbolic link to the device, as long as the object lives. Replaces a link that was left behind,
// but nothing else that may stand there.
class DeviceLink {
 public:
  DeviceLink(const std::string& path, const std::string& device) : path_(path), device_(device) {
    if (path_.empty()) return;
    MakeRoom();
    fs::create_symlink(device_, path_);
  }
  ~DeviceLink() {
    std::error_code error;  // gone or replaced by now: leave it
    if (!path_.empty() && fs::read_symlink(path_, error) == device_) fs::remove(path_, error);
  }
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;

 private:
  void MakeRoom() const {
    const fs::file_type there = fs::symlink_status(path_).type();
    if (there == fs::file_type::not_found) return;
    if (there != fs::file_type::symlink) {
      throw std::runtime_error(path_.string() +
                               " exists and is no symbolic link: name another path.");
    }
    // A killed instrument's terminal has its number again.
    const bool isOwn = fs::read_symlink(path_) == device_;
    if (!isOwn && IsServed(path_)) {
      throw std::runtime_error("At " + path_.string() +
                               " an instrument answers already: stop it or name another path.");
    }
    fs::remove(path_);
  }

  fs::path path_, device_;
};

class PtyServer : public Server {
 public:
  PtyServer(const Settings& settings, const std::string& link)
      : Server(settings),
        master_(context_, OpenMaster()),
        device_(DeviceOf(master_.native_handle())),
        slave_(context_, OpenSlave(device_)),
        link_(link, device_) {
    session_.emplace(std::move(master_), *instrument_, lineSpeed_, [] {});
    Run();
  }
  ~PtyServer() override { Stop(); }

  std::string Address() const override { return device_; }

 private:
  stream_descriptor master_;
  std::string device_;
  stream_descriptor slave_;
  DeviceLink link_;
  std::optional<Session<stream_descriptor>> session_;
};

}  // namespace

std::unique_ptr<Served> ServePty(const Settings& settings, const std::string& link) {
  try {
    return std::make_unique<PtyServer>(settings, link);
  } catch (const fs::filesystem_error& error) {
    throw std::runtime_error("The link " + link + " can't be made (" + error.code().message() +
                             "): name another path.");
  }
}

}  // namespace simulator
