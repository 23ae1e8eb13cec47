// Draw dates: stored as 'YYYY-MM-DD', shown as "dd/MM/yy".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zef {

// True for a real calendar day.
bool DataValida(int anno, int mese, int giorno);
// 'YYYY-MM-DD' from its parts.
std::string DataIso(int anno, int mese, int giorno);
// Reads a date typed or stored in any of the forms the archive meets: 'YYYY-MM-DD',
// 'YYYY/MM/DD', day/month/year with a four- or two-digit year (00..29 are 2000s,
// 30..99 are 1900s, as the run time reads them). nullopt when it is no real date.
std::optional<std::string> DataInIso(std::string_view testo);
// "dd/MM/yy" of an ISO date (the browser's date box).
std::string DataBreve(const std::string& iso);
// The year of an ISO date.
int AnnoDi(const std::string& iso);
// Today's date, ISO.
std::string OggiIso();

}  // namespace zef
