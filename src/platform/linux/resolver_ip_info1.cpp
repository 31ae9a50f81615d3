#include "platform/linux/resolver_ip_info1.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/socket.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace qv {
namespace {

constexpr const char* kNoAddress = "0.0.0.0";
constexpr int kImpossibleName = 1;

bool NameDoesNotExist(int error) { return error == EAI_NONAME || error == EAI_NODATA; }

std::string TextOf(const addrinfo& info) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (info.ai_family == AF_INET) {
        const auto* address = reinterpret_cast<const sockaddr_in*>(info.ai_addr);
        inet_ntop(AF_INET, &address->sin_addr, text.data(), text.size());
        return text.data();
    }
    const auto* address = reinterpret_cast<const sockaddr_in6*>(info.ai_addr);
    inet_ntop(AF_INET6, &address->sin6_addr, text.data(), text.size());
    return "[" + std::string(text.data()) + "]";
}

}  // namespace

ResolverAnswer AskSystemResolver(const std::string& name) {
    std::string bare = name;
    if (bare.size() > 2 && bare.front() == '[' && bare.back() == ']') bare = bare.substr(1, bare.size() - 2);
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int error = getaddrinfo(bare.c_str(), nullptr, &hints, &found);
    if (error != 0) return {error, ""};
    const addrinfo* best = nullptr;
    for (const addrinfo* info = found; info != nullptr; info = info->ai_next) {
        if (info->ai_family != AF_INET && info->ai_family != AF_INET6) continue;
        if (best == nullptr || (best->ai_family != AF_INET && info->ai_family == AF_INET)) best = info;
    }
    ResolverAnswer answer{best == nullptr ? EAI_NONAME : 0, best == nullptr ? "" : TextOf(*best)};
    freeaddrinfo(found);
    return answer;
}

// One thread that asks for one name after the other. It holds itself alive, so that it can be left behind while it is held
// up in the system's resolver; it ends when nobody else holds it.
struct ResolverIpInfo1::Worker {
    std::mutex mutex;
    std::condition_variable wake;
    std::optional<std::pair<int, std::string>> next;
    bool busy = false;
    bool leave = false;

    static void Run(const std::shared_ptr<Worker>& worker, EventLoop& loop, const std::weak_ptr<ResolverIpInfo1*>& owner,
                    const Resolver& resolver) {
        std::unique_lock lock(worker->mutex);
        while (!worker->leave) {
            if (!worker->next) {
                worker->wake.wait(lock);
                continue;
            }
            const auto [request, name] = *worker->next;
            worker->next.reset();
            worker->busy = true;
            lock.unlock();
            const ResolverAnswer answer = resolver(name);
            lock.lock();
            worker->busy = false;
            if (worker->leave) return;
            loop.Post([owner, request = request, answer] {
                if (const auto alive = owner.lock()) (*alive)->Take(request, answer);
            });
        }
    }
};

ResolverIpInfo1::ResolverIpInfo1(EventLoop& loop, LastError& lastError, Resolver resolver)
    : loop_(loop), lastError_(lastError), resolver_(std::move(resolver)), self_(std::make_shared<ResolverIpInfo1*>(this)) {}

ResolverIpInfo1::~ResolverIpInfo1() {
    if (worker_ == nullptr) return;
    const std::lock_guard lock(worker_->mutex);
    worker_->leave = true;
    worker_->wake.notify_one();
}

void ResolverIpInfo1::SetHostName(const std::string& name) {
    SetLookupAction(0);
    hostAddress_ = "Default";
    request_ = ++lastRequest_;
    if (IsImpossibleHostName(name)) {
        loop_.Post([owner = std::weak_ptr(self_), request = request_] {
            if (const auto alive = owner.lock()) (*alive)->Take(request, {kImpossibleName, ""});
        });
        return;
    }
    if (worker_ == nullptr) {
        worker_ = std::make_shared<Worker>();
        std::thread([worker = worker_, &loop = loop_, owner = std::weak_ptr(self_), resolver = resolver_] {
            Worker::Run(worker, loop, owner, resolver);
        }).detach();
    }
    const std::lock_guard lock(worker_->mutex);
    worker_->next = {request_, name};
    worker_->wake.notify_one();
}

void ResolverIpInfo1::SetLookupAction(int action) {
    if (action != 0) return;
    request_ = 0;
    const std::shared_ptr<Worker> worker = worker_;
    if (worker == nullptr) return;
    const std::lock_guard lock(worker->mutex);
    worker->next.reset();
    if (!worker->busy) return;
    worker->leave = true;  // it is held up: the next look-up gets a worker of its own
    worker_.reset();
}

void ResolverIpInfo1::Take(int request, const ResolverAnswer& answer) {
    if (request != request_) return;
    request_ = 0;
    if (answer.error == 0) {
        hostAddress_ = answer.address;
        Complete(0, "");
    } else if (NameDoesNotExist(answer.error)) {
        hostAddress_.clear();
        lastError_.Set(kErrorHostNotFound, "Host not found");
    } else {
        hostAddress_ = kNoAddress;
        Complete(answer.error, "Look-up failed");
    }
}

void ResolverIpInfo1::Complete(int status, const std::string& text) {
    if (OnRequestComplete) OnRequestComplete(lastRequest_, status, text);
}

}  // namespace qv
