#include "session/engine/Translations.h"

namespace pstolvane1 {

std::shared_ptr<const sql::Translation> Translations::Of(
    std::string_view select, const std::shared_ptr<const sql::Catalog>& catalog) {
  {
    const std::lock_guard lock(mutex_);
    for (const Known& known : known_) {
      if (known.catalog == catalog && known.select == select) return known.translation;
    }
  }
  // Not under the lock: queries of one report are translated side by side.
  auto translation = std::make_shared<const sql::Translation>(translate_(select, *catalog));
  const std::lock_guard lock(mutex_);
  known_.push_back({std::string(select), catalog, translation});
  if (known_.size() > kKept) known_.pop_front();
  return translation;
}

}  // namespace pstolvane1
