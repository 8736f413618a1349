#include "session/data/RowKeys.h"

#include <bit>
#include <cmath>
#include <utility>

#include "session/data/RowStore.h"
#include "session/data/TextFold.h"

namespace pstolvane1 {

CellKey CellKey::OfWhole(std::int64_t number) {
  return {Kind::kWhole, static_cast<std::uint64_t>(number), {}};
}

CellKey CellKey::OfMoney(Currency money) {
  const std::int64_t units = money.TenThousandths();
  if (units % 10000 == 0) return OfWhole(units / 10000);
  return {Kind::kMoney, static_cast<std::uint64_t>(units), {}};
}

// Money and fractions meet where the double is the one nearest to an amount of money.
CellKey CellKey::OfNumber(double number) {
  constexpr double kWholeLimit = 9223372036854775808.0;
  constexpr double kExactUnits = 9007199254740992.0;
  if (number == std::trunc(number) && std::abs(number) < kWholeLimit) {
    return OfWhole(static_cast<std::int64_t>(number));
  }
  const double units = std::nearbyint(number * 10000.0);
  if (std::abs(units) < kExactUnits && units / 10000.0 == number) {
    return {Kind::kMoney, static_cast<std::uint64_t>(static_cast<std::int64_t>(units)), {}};
  }
  return {Kind::kFraction, std::bit_cast<std::uint64_t>(number), {}};
}

CellKey CellKey::OfDate(Date date) {
  // Adding 0 makes -0 and 0 one.
  return {Kind::kDate, std::bit_cast<std::uint64_t>(date.Elapsed() + 0.0), {}};
}

CellKey CellKey::OfText(std::string_view text) { return {Kind::kText, HashFolded(text), text}; }

CellKey CellKey::Of(const RowStore& store, int column, std::uint32_t row) {
  const RowStore::Place at = store.At(row);
  const auto cell = static_cast<std::size_t>(column);
  if (at.chunk->IsNull(cell, at.row)) return {};
  switch (store.Column(column).type) {
    case adBoolean:
      return OfWhole(at.chunk->Get<std::int16_t>(cell, at.row) != 0 ? -1 : 0);
    case adInteger:
      return OfWhole(at.chunk->Get<std::int32_t>(cell, at.row));
    case adBigInt:
      return OfWhole(at.chunk->Get<std::int64_t>(cell, at.row));
    case adSingle:
      return OfNumber(static_cast<double>(at.chunk->Get<float>(cell, at.row)));
    case adDouble:
      return OfNumber(at.chunk->Get<double>(cell, at.row));
    case adCurrency:
      return OfMoney(Currency::FromTenThousandths(at.chunk->Get<std::int64_t>(cell, at.row)));
    case adDate:
      return OfDate(Date(at.chunk->Get<double>(cell, at.row)));
    case adBSTR:
    case adVarChar:
      return OfText(at.chunk->Text(cell, at.row));
    case adEmpty:
    case adChapter:
      break;
  }
  return {};
}

std::uint64_t CellKey::Hash() const {
  std::uint64_t hash = bits + static_cast<std::uint64_t>(kind) * 0x9E3779B97F4A7C15U;
  hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93U;
  hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93U;
  return hash ^ (hash >> 32);
}

bool operator==(const CellKey& a, const CellKey& b) {
  return a.kind == b.kind && a.bits == b.bits &&
         (a.kind != CellKey::Kind::kText || EqualFolded(a.text, b.text));
}

namespace {

std::uint64_t HashOf(std::span<const CellKey> key) {
  std::uint64_t hash = 0;
  for (const CellKey& part : key) hash = std::rotl(hash, 23) * 0x9E3779B97F4A7C15U ^ part.Hash();
  return hash;
}

constexpr std::size_t kFirstSlots = 16;

}  // namespace

KeyTable::KeyTable(const RowStore& store, std::vector<int> columns)
    : store_(&store),
      columns_(std::move(columns)),
      is_int32_(columns_.size() == 1 && store.Column(columns_.front()).type == adInteger),
      scratch_(columns_.size()),
      slots_(kFirstSlots, {0, kNone}) {}

bool KeyTable::IsKeyOf(std::uint32_t row, std::span<const CellKey> key) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (CellKey::Of(*store_, columns_[i], row) != key[i]) return false;
  }
  return true;
}

bool KeyTable::HashDecides(std::span<const CellKey> key) const {
  using Limits = std::numeric_limits<std::int32_t>;
  if (!is_int32_ || key.front().kind != CellKey::Kind::kWhole) return false;
  const auto number = static_cast<std::int64_t>(key.front().bits);
  return number >= Limits::min() && number <= Limits::max();
}

KeyTable::Probe KeyTable::Look(std::span<const CellKey> key, std::uint64_t hash) const {
  const auto tag = static_cast<std::uint32_t>(hash >> 32);
  const bool hash_decides = HashDecides(key);
  for (std::size_t at = hash;; ++at) {
    at &= slots_.size() - 1;
    const Slot slot = slots_[at];
    if (slot.number == kNone) return {kNone, at};
    if (slot.tag == tag && hash_[slot.number] == hash &&
        (hash_decides || IsKeyOf(first_row_[slot.number], key))) {
      return {slot.number, at};
    }
  }
}

std::uint32_t KeyTable::Add(std::uint32_t row) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    scratch_[i] = CellKey::Of(*store_, columns_[i], row);
  }
  const std::uint64_t hash = HashOf(scratch_);
  const Probe probe = Look(scratch_, hash);
  if (probe.number != kNone) return probe.number;
  const std::uint32_t number = Count();
  hash_.push_back(hash);
  first_row_.push_back(row);
  slots_[probe.slot] = {static_cast<std::uint32_t>(hash >> 32), number};
  if (first_row_.size() * 2 > slots_.size()) Grow();
  return number;
}

std::uint32_t KeyTable::Find(std::span<const CellKey> key) const {
  return Look(key, HashOf(key)).number;
}

std::uint32_t KeyTable::Find(const RowStore& other, std::span<const int> columns,
                             std::uint32_t row) const {
  std::vector<CellKey> key;
  CellKey one;
  if (columns.size() == 1) {
    one = CellKey::Of(other, columns.front(), row);
    return Find({&one, 1});
  }
  key.reserve(columns.size());
  for (const int column : columns) key.push_back(CellKey::Of(other, column, row));
  return Find(key);
}

void KeyTable::Grow() {
  std::vector<Slot>(slots_.size() * 4, {0, kNone}).swap(slots_);
  for (std::uint32_t number = 0; number < Count(); ++number) {
    std::size_t at = hash_[number] & (slots_.size() - 1);
    while (slots_[at].number != kNone) at = (at + 1) & (slots_.size() - 1);
    slots_[at] = {static_cast<std::uint32_t>(hash_[number] >> 32), number};
  }
}

std::size_t KeyTable::Bytes() const {
  return slots_.capacity() * sizeof(Slot) + hash_.capacity() * sizeof(std::uint64_t) +
         first_row_.capacity() * sizeof(std::uint32_t);
}

}  // namespace pstolvane1
