// A loopback server for tests: it plays one script for each connection and keeps what it was sent.
#pragma once

#include <sys/socket.h>
#include <unistd.h>

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform_linux/loopback.h"

namespace qv {

class RawServer {
   public:
    // `answer(request, socket)` writes to the socket; false closes the connection.
    using Answer = std::function<bool(const std::string& request, int socket)>;

    explicit RawServer(Answer answer) : answer_(std::move(answer)) {
        listener_ = ListenOnLoopback();
        port = BoundPort(listener_);
        thread_ = std::thread([this] { Accept(); });
    }
    ~RawServer() {
        shutdown(listener_, SHUT_RDWR);
        close(listener_);
        thread_.join();
        for (const int connection : connections_) shutdown(connection, SHUT_RDWR);
        for (auto& worker : workers_) worker.join();
        for (const int connection : connections_) close(connection);
    }
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    std::string Url(const std::string& path) const { return "http://127.0.0.1:" + std::to_string(port) + path; }
    std::vector<std::string> Requests() {
        const std::lock_guard lock(mutex_);
        return requests_;
    }
    int Connections() {
        const std::lock_guard lock(mutex_);
        return static_cast<int>(connections_.size());
    }
    static bool Send(int socket, const std::string& bytes) {
        return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
    }

    int port = 0;

   private:
    void Accept() {
        for (;;) {
            const int connection = accept(listener_, nullptr, nullptr);
            if (connection < 0) return;
            const std::lock_guard lock(mutex_);
            connections_.push_back(connection);
            workers_.emplace_back([this, connection] { Serve(connection); });
        }
    }
    void Serve(int connection) {
        std::string buffer;
        char bytes[4096];
        for (;;) {
            const auto end = buffer.find("\r\n\r\n");
            if (end == std::string::npos) {
                const ssize_t got = recv(connection, bytes, sizeof bytes, 0);
                if (got <= 0) return;
                buffer.append(bytes, static_cast<std::size_t>(got));
                continue;
            }
            const std::string request = buffer.substr(0, end + 4);
            buffer.erase(0, end + 4);
            {
                const std::lock_guard lock(mutex_);
                requests_.push_back(request);
            }
            if (!answer_(request, connection)) {
                shutdown(connection, SHUT_RDWR);
                return;
            }
        }
    }

    Answer answer_;
    int listener_ = -1;
    std::thread thread_;
    std::mutex mutex_;
    std::vector<std::string> requests_;
    std::vector<int> connections_;
    std::vector<std::thread> workers_;
};

}  // namespace qv
