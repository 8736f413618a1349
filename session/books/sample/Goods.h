// How the sample books choose parts and price lines; shared by trade, orders and the workshop.
#pragma once

#include <optional>

#include "session/books/sample/World.h"

namespace pstolvane1::books::sample {

// A part that the books know in this year and that the document does not have yet; empty when luck
// does not bring one up.
[[nodiscard]] std::optional<std::size_t> DrawPart(World& world, const Document& document);
// Of those not kept by lot.
[[nodiscard]] std::optional<std::size_t> DrawPlainPart(World& world, const Document& document);
// Of which there is stock in the godown.
[[nodiscard]] std::optional<std::size_t> DrawStockedPart(World& world, const Document& document,
                                                         int godown);

[[nodiscard]] double DrawPurchaseQuantity(World& world, const Item& item);
[[nodiscard]] double DrawSaleQuantity(World& world, const Item& item);

// Priced, with the item's tax and without movements.
[[nodiscard]] Line PurchaseLine(World& world, std::size_t item, double quantity);
[[nodiscard]] Line SaleLine(World& world, std::size_t item, double quantity);
[[nodiscard]] Line LabourLine(World& world, std::size_t item);

// Gives the line its movements. A document that counts moves the stock as well.
void MoveIn(World& world, const Document& document, Line& line, int godown);
void MoveOut(World& world, const Document& document, Line& line, int godown);

}  // namespace pstolvane1::books::sample
