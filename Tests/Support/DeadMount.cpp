#include "Tests/Support/DeadMount.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <linux/fuse.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {

namespace {

using DesktopSupport::FileDescriptor;

/// The descriptor of fusermount3's end of the socket.
constexpr int mounterDescriptor = 3;

/// This process's environment, with the variable that tells fusermount3 its descriptor.
std::vector<char*> mounterEnvironment() {
  static std::string socket = "_FUSE_COMMFD=" + std::to_string(mounterDescriptor);
  std::vector<char*> variables = {socket.data()};
  for (char** variable = environ; *variable != nullptr; ++variable)
    variables.push_back(*variable);
  variables.push_back(nullptr);
  return variables;
}

/// Starts fusermount3 with its end of the socket. Returns -1 if it cannot be started.
pid_t startMounter(std::string path, const FileDescriptor& socket) {
  std::array<std::string, 5> texts = {"fusermount3", "-o", "auto_unmount,fsname=dead", "--", std::move(path)};
  std::array<char*, texts.size() + 1> arguments = {};
  for (std::size_t index = 0; index < texts.size(); ++index)
    arguments[index] = texts[index].data();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, socket.number(), mounterDescriptor);
  pid_t mounter = -1;
  if (posix_spawnp(&mounter, arguments[0], &actions, nullptr, arguments.data(), mounterEnvironment().data()) != 0)
    mounter = -1;
  posix_spawn_file_actions_destroy(&actions);
  return mounter;
}

/// The descriptor sent over the socket, or -1 if there is none.
int receiveDescriptor(const FileDescriptor& socket) {
  char byte = 0;
  iovec data = {.iov_base = &byte, .iov_len = 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control = {};
  msghdr message = {};
  message.msg_iov = &data;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  ssize_t count = 0;
  do
    count = recvmsg(socket.number(), &message, MSG_CMSG_CLOEXEC);
  while (count < 0 && errno == EINTR);
  const cmsghdr* header = count > 0 ? CMSG_FIRSTHDR(&message) : nullptr;
  if (header == nullptr || header->cmsg_type != SCM_RIGHTS)
    return -1;
  int descriptor = -1;
  std::memcpy(&descriptor, CMSG_DATA(header), sizeof descriptor);
  return descriptor;
}

/// Answers the kernel's first message, after which the kernel sends requests. Returns false if that fails.
bool greet(const FileDescriptor& requests) {
  struct Greeting {
    fuse_in_header header;
    fuse_init_in body;
  } greeting = {};
  std::array<char, FUSE_MIN_READ_BUFFER> request = {};
  if (read(requests.number(), request.data(), request.size()) < static_cast<ssize_t>(sizeof greeting))
    return false;
  std::memcpy(&greeting, request.data(), sizeof greeting);
  struct Answer {
    fuse_out_header header;
    fuse_init_out body;
  } answer = {};
  answer.header.len = sizeof answer;
  answer.header.unique = greeting.header.unique;
  answer.body.major = FUSE_KERNEL_VERSION;
  answer.body.minor = FUSE_KERNEL_MINOR_VERSION;
  answer.body.max_readahead = greeting.body.max_readahead;
  answer.body.max_write = 4096;
  return write(requests.number(), &answer, sizeof answer) == sizeof answer;
}

}  // namespace

DeadMount::DeadMount(std::filesystem::path path) : path_(std::move(path)) {
  mount();
  if (!requests_->isOpen() || !greet(*requests_)) {
    unmount();
    throw std::runtime_error("no file system can be mounted at " + path_.string());
  }
}

DeadMount::~DeadMount() {
  unmount();
}

void DeadMount::mount() {
  std::array<int, 2> ends = {-1, -1};
  socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data());
  mounterSocket_.emplace(ends[0]);
  {
    const FileDescriptor mountersEnd(ends[1]);
    mounter_ = startMounter(path_.string(), mountersEnd);
  }
  requests_.emplace(receiveDescriptor(*mounterSocket_));
}

void DeadMount::unmount() {
  requests_.reset();  // aborts all waiting requests
  mounterSocket_.reset();
  while (mounter_ > 0 && waitpid(mounter_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

bool DeadMount::awaitRequest(std::chrono::milliseconds time) const {
  pollfd requests = {.fd = requests_->number(), .events = POLLIN, .revents = 0};
  return poll(&requests, 1, milliseconds(time)) > 0;
}

}  // namespace TestSupport
