#include "session/books/sample/Masters.h"

#include <algorithm>
#include <array>

namespace pstolvane1::books::sample {
namespace {

constexpr std::array<std::string_view, 9> kUnits = {"Nos", "Set", "Kit",   "Pair", "Ltr",
                                                    "Box", "Can", "Dozen", "Job"};

int UnitOf(std::string_view unit) {
  return static_cast<int>(std::ranges::find(kUnits, unit) - kUnits.begin()) + 1;
}

int PlaceIn(std::span<const Branch> tree, std::string_view name) {
  const auto found =
      std::ranges::find_if(tree, [&](const Branch& one) { return one.name == name; });
  return static_cast<int>(found - tree.begin()) + 1;
}

// A root is its own parent.
void WriteTree(Writer& writer, std::string_view table, std::string_view columns,
               std::span<const Branch> tree) {
  Statement insert(writer, table, columns);
  int id = 0;
  for (const Branch& one : tree) {
    ++id;
    insert.Run(id, one.name, one.parent.empty() ? id : PlaceIn(tree, one.parent),
               one.name == "Discontinued");
  }
}

void WriteNames(Writer& writer, std::string_view table, std::string_view columns,
                std::span<const std::string_view> names) {
  Statement insert(writer, table, columns);
  int id = 0;
  for (const std::string_view name : names) insert.Run(++id, name);
}

void WritePeople(Writer& writer, std::string_view table, std::string_view columns,
                 const std::vector<Person>& people) {
  Statement insert(writer, table, columns);
  int id = 0;
  for (const Person& person : people) insert.Run(++id, person.name);
}

std::string Serial(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  return std::string(digits > text.size() ? digits - text.size() : 0, '0') + text;
}

void WriteItem(Statement& insert, const Item& item) {
  std::string part_number = "L-" + Serial(item.id, 5);
  std::string description = "Workshop labour";
  std::string_view unit = "Job", alternate = "Job", category = "Labour", item_class = "Services";
  std::optional<int> seats;
  if (item.model) {
    part_number = std::string(item.model->code) + "-" + Serial(item.id, 3);
    description = "Vehicle, " + std::to_string(item.model->seats) + " seats";
    unit = alternate = "Nos";
    category = item.model->category;
    item_class = "Showroom Vehicles";
    seats = item.model->seats;
  } else if (item.part) {
    part_number = "P-" + Serial(item.id, 5);
    description = std::string(item.part->name) + ", " + std::string(item.part->item_class);
    unit = item.part->unit;
    alternate = item.part->alternate_unit;
    category = item.part->category;
    item_class = item.part->item_class;
  }
  insert.Run(item.id, item.name, part_number, part_number, description, UnitOf(unit),
             UnitOf(alternate), static_cast<double>(item.relation),
             PlaceIn(CategoryTree(), category), PlaceIn(ClassTree(), item_class), item.Batches(),
             false, item.year_of_creation, item.kind != ItemKind::kLabour,
             item.id % 40 == 39 ? 2 : 1, seats);
}

void WriteSubgroups(Writer& writer) {
  struct Row {
    Subgroup id;
    std::string_view name;
    int code;
  };
  constexpr Row kRows[] = {{kCash, "Cash in Hand", 1},
                           {kBankAccounts, "Bank Accounts", 2},
                           {kBankOverdraft, "Bank Overdraft", 41},
                           {kDebtors, "Sundry Debtors", 20},
                           {kDealers, "Sub Dealers", 21},
                           {kCreditors, "Sundry Creditors", 22},
                           {kSalesAccounts, "Sales Accounts", 30},
                           {kPurchaseAccounts, "Purchase Accounts", 31},
                           {kDuties, "Duties and Taxes", 32},
                           {kExpenses, "Direct Expenses", 35},
                           {kStockInHand, "Stock in Hand", 33},
                           {kProfitAndLoss, "Profit and Loss", 34}};
  Statement insert(writer, "SubgroupName1", "Subgroup_id, SubgroupName, Code");
  for (const Row& row : kRows) insert.Run(static_cast<int>(row.id), row.name, row.code);
}

struct HouseRow {
  HouseLedger id;
  std::string_view name;
  Subgroup subgroup;
};
constexpr HouseRow kHouseLedgers[] = {
    {kCashLedger, "Cash", kCash},
    {kBankLedger, "Grameen Sahakari Bank Current A/c", kBankAccounts},
    {kOverdraftLedger, "Grameen Sahakari Bank Overdraft A/c", kBankOverdraft},
    {kSparesSales, "Sales - Spare Parts", kSalesAccounts},
    {kVehicleSales, "Sales - Vehicles", kSalesAccounts},
    {kLabourIncome, "Labour Charges Received", kSalesAccounts},
    {kPurchases, "Purchases", kPurchaseAccounts},
    {kTaxLedger, "Sales Tax and Service Tax", kDuties},
    {kWorkshopExpenses, "Workshop Expenses", kExpenses},
    {kStockLedger, "Closing Stock", kStockInHand},
    {kProfitLedger, "Profit and Loss A/c", kProfitAndLoss}};

}  // namespace

Paise Item::PriceIn(int year) const {
  const Paise now = CostIn(year);
  if (kind == ItemKind::kLabour) return now;
  return (now + now / (model ? 12 : 5)) / 10 * 10;
}

Person DrawPerson(Random& random) {
  const bool woman = random.Chance(25);
  const std::string_view first = random.Pick(woman ? FemaleNames() : MaleNames());
  return {std::string(first) + " " + std::string(random.Pick(Surnames())), woman};
}

Masters::Masters(Writer& writer, const Plan& plan, Random& random) {
  DrawItems(plan, random);
  DrawParties(plan, random);
  for (int i = 0; i < plan.employees; ++i) employees.push_back(DrawPerson(random));
  for (int i = 0; i < plan.mechanics; ++i) mechanics.push_back(DrawPerson(random));

  WriteNames(writer, "Uom1", "Uom_id, UomName", kUnits);
  WriteTree(writer, "ItemCategory1", "ItemCategory_id, CategoryName, RelatedTo, Deleted",
            CategoryTree());
  WriteTree(writer, "ItemClass1", "ItemClass_id, ClassName, RelatedTo, Deleted", ClassTree());
  WriteTree(writer, "Godown1", "Godown_id, GodownName, RelatedTo, Deleted", GodownTree());
  writer.Execute("UPDATE Godown1 SET ShortName = upper(substr(GodownName, 1, 3)) || Godown_id");
  godowns = static_cast<int>(GodownTree().size());
  WriteNames(writer, "Color1", "Color_id, Color", Colours());
  {
    Statement insert(writer, "Items1",
                     "Item_id, ItemName, ItemPartNo, PartNo, ItemDesc, Uom_id, AlternateUom_id, "
                     "RelationFormula, ItemCategory_id, ItemClass_id, MaintainBatches, Deleted, "
                     "YearOfCreation, ConsiderForSih, ItemState, SeatingCapacity");
    for (const Item& item : items) WriteItem(insert, item);
  }
  WriteSubgroups(writer);
  {
    Statement insert(writer, "LedgerNames1",
                     "Ledger_id, LedgerName, Subgroup_id, Pin, YearOfCreation");
    for (const HouseRow& row : kHouseLedgers) {
      insert.Run(static_cast<int>(row.id), row.name, static_cast<int>(row.subgroup), std::nullopt,
                 1);
    }
    for (const auto* parties : {&suppliers, &customers}) {
      for (const Party& one : *parties) {
        insert.Run(one.ledger, one.name, one.subgroup, one.pin, one.year_of_creation);
      }
    }
  }
  WritePeople(writer, "Employee1", "Employee_id, EmployeeName", employees);
  WritePeople(writer, "MechanicName", "Mechanic_id, MechanicName", mechanics);
  {
    Statement insert(writer, "TransporterShipper1", "TransporterShipperName");
    for (const std::string_view name : Transporters()) insert.Run(name);
  }
  {
    Statement insert(writer, "Hypo", "Hypo_id, Name, Pincode");
    int id = 0;
    for (const std::string_view name : Financiers()) {
      ++id;
      // Two financiers share a quarter and one has not told its own.
      const Town& town = Towns()[static_cast<std::size_t>(id / 2)];
      insert.Run(id, name, id == 6 ? std::optional<std::string>() : std::to_string(town.pin));
    }
  }
  WriteNames(writer, "JobcardType", "Jobcardtype_id, Jobcardtype", ServiceTypes());
  WriteNames(writer, "Defect", "Defect_id, DefectName", Defects());
  WriteNames(writer, "Perfomance", "Perfomance_id, PerfomanceName", Performances());
  {
    Statement insert(writer, "Vendor", "Vendor_id, VendorName");
    const std::size_t vendors = std::min<std::size_t>(suppliers.size(), 8);
    for (std::size_t i = 0; i < vendors; ++i)
      insert.Run(static_cast<int>(i) + 1, suppliers[i].name);
  }
}

void Masters::DrawItems(const Plan& plan, Random& random) {
  for (const VehicleModel& model : Models()) {
    Item item;
    item.name = model.name;
    item.kind = ItemKind::kVehicle;
    item.model = &model;
    item.cost = Paise{model.cost_rupees} * 100;
    item.tax_hundredths = 1250;
    items.push_back(item);
  }
  first_part = items.size();
  const auto kinds = PartKinds();
  for (int i = 0; i < plan.parts; ++i) {
    const auto place = static_cast<std::size_t>(i);
    const PartKind& kind = kinds[place % kinds.size()];
    const VehicleModel& model = Models()[place / kinds.size() % Models().size()];
    const auto grade = place / kinds.size() / Models().size();
    Item item;
    item.kind = ItemKind::kPart;
    item.part = &kind;
    item.name = std::string(kind.name) + " - " + std::string(model.name);
    if (grade > 0) item.name += " Gr " + std::to_string(grade + 1);
    // Prices in steps of ten paise stay whole for half units.
    item.cost = Paise{kind.cost_rupees} * random.Range(88, 118) / 10 * 10;
    item.tax_hundredths = kind.tax_hundredths;
    item.relation = kind.relation;
    item.year_of_creation = i % 15 == 13 ? 2 : i % 25 == 21 ? 3 : 1;
    items.push_back(item);
  }
  first_labour = items.size();
  for (const LabourJob& job : LabourJobs()) {
    Item item;
    item.name = job.name;
    item.kind = ItemKind::kLabour;
    item.cost = Paise{job.rupees} * 100;
    items.push_back(item);
  }
  for (std::size_t i = 0; i < items.size(); ++i) items[i].id = static_cast<int>(i) + 1;
}

void Masters::DrawParties(const Plan& plan, Random& random) {
  for (const HouseRow& row : kHouseLedgers) {
    subgroups_.resize(static_cast<std::size_t>(row.id) + 1);
    subgroups_.back() = row.subgroup;
  }
  int ledger = kFirstParty;
  const auto place = [&](Party& one) {
    one.ledger = ledger++;
    one.town = &random.Pick(Towns());
    one.pin = std::to_string(one.town->pin + random.Range(0, 6));
    const std::string street(random.Pick(Streets()));
    one.street = std::to_string(random.Range(1, 480)) + ", " + street;
    one.year_of_creation = ledger % 9 == 4 ? 2 : ledger % 13 == 7 ? 3 : 1;
    subgroups_.push_back(one.subgroup);
  };
  const auto firm = [&] {
    const std::string ending(random.Pick(FirmEndings()));
    return std::string(random.Pick(FirmWords())) + " " + ending;
  };
  for (int i = 0; i < plan.suppliers; ++i) {
    Party one;
    one.subgroup = kCreditors;
    place(one);
    one.year_of_creation = 1;
    one.name = firm() + ", " + std::string(one.town->name);
    suppliers.push_back(one);
  }
  for (int i = 0; i < plan.customers; ++i) {
    Party one;
    const bool dealer = i % 4 == 1;
    one.subgroup = dealer ? kDealers : kDebtors;
    place(one);
    one.name = dealer ? firm() + ", " + std::string(one.town->name) : DrawPerson(random).name;
    if (i < 4) one.year_of_creation = 1;
    customers.push_back(one);
  }
}

int Masters::SubgroupOf(int ledger) const { return subgroups_[static_cast<std::size_t>(ledger)]; }

}  // namespace pstolvane1::books::sample
