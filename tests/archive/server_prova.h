// A small HTTP server on 127.0.0.1 for the tests and benchmarks of the web update:
// fixed answers by path, one connection at a time, stopped by its destructor.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace zef::prova {

class ServerProva {
public:
    struct Risposta {
        int stato = 200;
        std::string corpo;
        std::string posizione;  // Location of a redirect
    };

    ServerProva() {
        fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
        int uno = 1;
        ::setsockopt(fd_, SOL_SOCKET, SO_REUSEADDR, &uno, sizeof uno);
        sockaddr_in ind{};
        ind.sin_family = AF_INET;
        ind.sin_addr.s_addr = htonl(INADDR_LOOPBACK);  // loopback only
        ind.sin_port = 0;
        if (::bind(fd_, reinterpret_cast<sockaddr*>(&ind), sizeof ind) != 0 || ::listen(fd_, 16) != 0)
            throw std::runtime_error("server di prova: bind");
        socklen_t l = sizeof ind;
        ::getsockname(fd_, reinterpret_cast<sockaddr*>(&ind), &l);
        porta_ = ntohs(ind.sin_port);
        t_ = std::thread([this] { ciclo(); });
    }
    ~ServerProva() {
        fine_ = true;
        t_.join();
        ::close(fd_);
    }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(porta_); }
    void imposta(const std::string& percorso, Risposta r) {
        std::lock_guard l(m_);
        percorsi_[percorso] = std::move(r);
    }
    std::vector<std::string> richieste() {
        std::lock_guard l(m_);
        return richieste_;
    }

private:
    void ciclo() {
        while (!fine_) {
            pollfd p{fd_, POLLIN, 0};
            if (::poll(&p, 1, 50) <= 0) continue;
            int c = ::accept(fd_, nullptr, nullptr);
            if (c < 0) continue;
            timeval tv{2, 0};
            ::setsockopt(c, SOL_SOCKET, SO_RCVTIMEO, &tv, sizeof tv);
            servi(c);
            ::close(c);
        }
    }
    void servi(int c) {
        std::string req;
        char buf[4096];
        while (req.find("\r\n\r\n") == std::string::npos) {
            ssize_t n = ::recv(c, buf, sizeof buf, 0);
            if (n <= 0) return;
            req.append(buf, static_cast<size_t>(n));
        }
        size_t a = req.find(' ');
        size_t b = req.find(' ', a + 1);
        std::string percorso = req.substr(a + 1, b - a - 1);
        Risposta r{404, "<html>non trovata</html>", ""};
        {
            std::lock_guard l(m_);
            richieste_.push_back(req.substr(0, req.find("\r\n\r\n")));
            auto it = percorsi_.find(percorso);
            if (it != percorsi_.end()) r = it->second;
        }
        std::string testa = "HTTP/1.1 " + std::to_string(r.stato) + (r.stato == 200 ? " OK" : " Altro") + "\r\n";
        if (!r.posizione.empty()) testa += "Location: " + r.posizione + "\r\n";
        testa += "Content-Type: text/html; charset=utf-8\r\nContent-Length: " + std::to_string(r.corpo.size()) +
                 "\r\nConnection: close\r\n\r\n";
        std::string tutto = testa + r.corpo;
        size_t inviati = 0;
        while (inviati < tutto.size()) {
            ssize_t n = ::send(c, tutto.data() + inviati, tutto.size() - inviati, MSG_NOSIGNAL);
            if (n <= 0) return;
            inviati += static_cast<size_t>(n);
        }
    }

    int fd_ = -1;
    int porta_ = 0;
    std::atomic<bool> fine_{false};
    std::thread t_;
    std::mutex m_;
    std::map<std::string, Risposta> percorsi_;
    std::vector<std::string> richieste_;
};

}  // namespace zef::prova
