#include "core/percorsi.h"

#include <filesystem>
#include <mutex>

namespace zef {

namespace {
std::mutex gMutex;
std::string gCartellaDati;
}  // namespace

std::string CartellaProgramma() {
    std::error_code ec;
    auto p = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec) return std::filesystem::current_path().string();
    return p.parent_path().string();
}

void ImpostaCartellaDati(const std::string& cartella) {
    std::lock_guard l(gMutex);
    gCartellaDati = cartella;
}

std::string CartellaDati() {
    std::lock_guard l(gMutex);
    return gCartellaDati.empty() ? CartellaProgramma() : gCartellaDati;
}

std::string FileDati(const std::string& nome) { return CartellaDati() + "/" + nome; }

}  // namespace zef
