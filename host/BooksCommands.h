// stolvane books: making, filling and checking books.
#pragma once

#include <cstdint>
#include <string>

namespace pstolvane1::host {

void CreateBooksFile(const std::string& path);
void SampleBooksFile(const std::string& path, std::int64_t movements, std::uint64_t seed);
// What the reference schema does not have is an error, or with leave_out told as left out.
void CopyBooksTo(const std::string& from, const std::string& to, bool leave_out);
void ImportBooksFile(const std::string& path, const std::string& folder);
// Prints what it finds. False when reports fail on these books or their figures are wrong.
bool CheckBooksAt(const std::string& connection_string);

}  // namespace pstolvane1::host
