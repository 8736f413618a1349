#include "automation/BooksKeys.h"

#include <fmt/format.h>
#include <memory>
#include <string_view>
#include <utility>

#include "session/data/Error.h"

namespace pstolvane1::automation {
namespace {

constexpr std::size_t kNamesTogether = 3;

template <typename Ask>
auto OrNothing(const Ask& ask) -> decltype(ask()) {
  try {
    return ask();
  } catch (const Error&) {
    return {};
  }
}

}  // namespace

std::string NameOfKey(const BooksReader& read, const Master& names, std::int32_t key) {
  const RecordsetPtr found =
      read(fmt::format("select distinct {} from {} where {} = {} and {} is not null", names.name,
                       names.table, names.key, key, names.name));
  std::string text;
  std::size_t count = 0;
  for (const Recordset::Row row : found->Rows()) {
    if (++count > kNamesTogether) return text + " ...";
    text += (text.empty() ? "" : ", ") + std::string(row.Text(ColumnHandle{0}));
  }
  return text;
}

std::map<std::int64_t, std::int64_t> GroupsAbove(const BooksReader& read, const Master& groups) {
  std::map<std::int64_t, std::int64_t> above;
  const RecordsetPtr all =
      read(fmt::format("select {}, {} from {}", groups.key, groups.above, groups.table));
  for (const Recordset::Row row : all->Rows()) {
    if (row.IsNull(ColumnHandle{1})) continue;
    above[row.Int64(ColumnHandle{0})] = row.Int64(ColumnHandle{1});
  }
  return above;
}

KeysOfBooks KeysReadBy(BooksReader read) {
  const auto name_of = [read](const Master& names, std::int32_t key) {
    return OrNothing([&] { return NameOfKey(read, names, key); });
  };
  using Trees = std::map<std::string_view, std::map<std::int64_t, std::int64_t>>;
  const auto above = [read = std::move(read), trees = std::make_shared<Trees>()](
                         const Master& groups, std::int64_t key) -> std::int64_t {
    const auto [tree, is_new] = trees->try_emplace(groups.table);
    if (is_new) tree->second = OrNothing([&] { return GroupsAbove(read, groups); });
    const auto found = tree->second.find(key);
    return found == tree->second.end() ? 0 : found->second;
  };
  return {name_of, above};
}

}  // namespace pstolvane1::automation
