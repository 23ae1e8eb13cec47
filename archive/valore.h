// The value of one field of a record: null, a whole number, a floating-point number
// or a text (dates are texts 'YYYY-MM-DD').
//
// Readers of the draws mostly want `numero()`: the field as a whole number, or
// nullopt for a null, which counts as a number not drawn.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace zef {

class Valore {
public:
    Valore() = default;
    Valore(std::nullopt_t) {}
    Valore(int v) : v_(static_cast<int64_t>(v)) {}
    Valore(long v) : v_(static_cast<int64_t>(v)) {}
    Valore(long long v) : v_(static_cast<int64_t>(v)) {}
    Valore(double v) : v_(v) {}
    Valore(std::string v) : v_(std::move(v)) {}
    Valore(const char* v) : v_(std::string(v)) {}
    Valore(std::optional<int> v) {
        if (v) v_ = static_cast<int64_t>(*v);
    }

    bool nullo() const { return std::holds_alternative<std::monostate>(v_); }
    bool intero() const { return std::holds_alternative<int64_t>(v_); }
    bool reale() const { return std::holds_alternative<double>(v_); }
    bool testuale() const { return std::holds_alternative<std::string>(v_); }

    // The value as a whole number (reals rounded half to even, texts read as numbers);
    // nullopt for a null. A text that is no number raises "Tipo non corrispondente".
    std::optional<int64_t> numero() const;
    // The value as a whole number; a null raises "Uso non valido di Null" (94).
    int64_t comeIntero() const;
    double comeReale() const;
    // The value as text ("" never stands for null: a null raises 94).
    std::string comeTesto() const;
    // As comeTesto, with "" for null.
    std::string testoOVuoto() const;

    const std::variant<std::monostate, int64_t, double, std::string>& grezzo() const { return v_; }

    bool operator==(const Valore& o) const = default;

private:
    std::variant<std::monostate, int64_t, double, std::string> v_;
};

}  // namespace zef
