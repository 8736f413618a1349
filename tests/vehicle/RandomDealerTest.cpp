// What must hold between the reports of the workshop and of the financiers, on random books.
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "RandomDealer.h"
#include "session/clsStolvane1.h"
#include "session/modStolvane1.h"

namespace pstolvane1 {
namespace {

constexpr std::uint32_t kBooks = 12;
constexpr std::uint8_t kByVehicle = 1, kByItem = 2;

class Dealer {
 public:
  explicit Dealer(const golden::SmallBooks& books) {
    *modStolvane1::OfThisThread() = modStolvane1();
    session_.SetLocale("en_IN");
    session_.SetConnection("", "", books.ConnectionString(), False);
    items_ = Recordset::New();
    items_->Open("select item_id as itemnew_id, itemname, 'Nos' as uomname from items1",
                 session_.GetConnectionObject());
  }

  RecordsetPtr Services(bool detailed) {
    return session_.FreeServiceReport(1, from_, to_, True, detailed, 1, "", "", 0);
  }
  RecordsetPtr ServiceBills(std::int32_t model, bool detailed) {
    return session_.FreeServiceReportDaily(rtFreeServiceReportDaily, 1, from_, to_, True, detailed,
                                           1, model, items_, 0);
  }
  RecordsetPtr Labour(std::uint8_t by, bool detailed, std::int32_t mechanic = 0) {
    return session_.MechanicLabourReport(1, from_, to_, True, detailed, 1, "", "", mechanic, by,
                                         "");
  }
  RecordsetPtr LabourBills(std::uint8_t by, bool detailed, std::int32_t mechanic,
                           std::int32_t item) {
    return session_.MechanicLabourReportDaily(rtMechanicLabourReportDaily, 1, from_, to_, True,
                                              detailed, 1, mechanic, item, 0, items_, by, "");
  }
  RecordsetPtr Financiers(bool detailed, bool by_pin) {
    return session_.HypoReport(1, from_, to_, True, detailed, 1, "", "", 0, by_pin ? 1 : 0, "");
  }
  RecordsetPtr FinancedSales(std::int32_t financier) {
    return session_.HypoReportDaily(1, from_, to_, True, False, 1, financier, 0, 0, items_, 0, "");
  }
  RecordsetPtr History(bool detailed) {
    return session_.ServiceReportRegno(1, from_, to_, True, detailed, 1, "", items_);
  }

 private:
  const Date from_ = Date::FromYmd(2003, 4, 1), to_ = Date::FromYmd(2004, 3, 31);
  clsStolvane1 session_;
  RecordsetPtr items_;
};

// Calls check with each of the books, and tells which ones failed.
template <typename Check>
void OnRandomDealers(Check&& check) {
  for (std::uint32_t seed = 1; seed <= kBooks; ++seed) {
    SCOPED_TRACE("books " + std::to_string(seed));
    const std::unique_ptr<golden::SmallBooks> books = RandomDealer(seed);
    Dealer dealer(*books);
    check(dealer);
  }
}

// The cells of a report's last line.
std::vector<std::string> TotalOf(const RecordsetPtr& report,
                                 std::initializer_list<const char*> columns) {
  report->MoveLast();
  std::vector<std::string> cells;
  for (const char* const column : columns) cells.push_back(report->Collect(column).ToText());
  return cells;
}

// "₹1,234.50" as ten-thousandths; "" and Null are 0.
Currency AmountOf(const Variant& cell) {
  std::string digits;
  if (!cell.IsNull()) {
    for (const char c : cell.ToText()) {
      if ((c >= '0' && c <= '9') || c == '.' || c == '-') digits += c;
    }
  }
  return digits.empty() ? Currency() : Variant(digits).ToCurrency();
}

// The sum of a column's amounts on the lines that have a text in another.
Currency SumWhere(const RecordsetPtr& report, const char* amount, const char* present) {
  Currency sum;
  for (const Recordset::Row row : report->Rows()) {
    if (!row[present].IsNull()) sum += AmountOf(row[amount]);
  }
  return sum;
}

TEST(RandomDealer, FreeServicesHaveTheSameTotalsByCategoryAndByModel) {
  OnRandomDealers([](Dealer& dealer) {
    const auto total = [](const RecordsetPtr& report) {
      return TotalOf(report, {"TotalFreeService1", "TotalFreeService2", "TotalFreeService3",
                              "TotalFreeService4", "TotalFreeService5", "TotalFreeService6",
                              "TotalParticulars"});
    };
    EXPECT_EQ(total(dealer.Services(false)), total(dealer.Services(true)));
  });
}

TEST(RandomDealer, ACategorysHeadingSumsItsModelsAndItsServices) {
  OnRandomDealers([](Dealer& dealer) {
    std::map<std::string, Currency> headings, models;
    const RecordsetPtr report = dealer.Services(true);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["ParticularsHead"].IsNull()) {
        Currency services;
        for (int service = 1; service <= 6; ++service) {
          services += AmountOf(row["FreeService" + std::to_string(service) + "Head"]);
        }
        const Currency heading = AmountOf(row["ParticularsHeadTotal"]);
        EXPECT_EQ(services, heading);
        headings[row["ParticularsHead"].ToText()] = heading;
      } else if (!row["Particulars"].IsNull()) {
        models[row["ParticularsHeadSort"].ToText()] += AmountOf(row["ParticularsTotal"]);
      }
    }
    EXPECT_EQ(headings, models);
  });
}

TEST(RandomDealer, TheBillsOfAModelAddUpToItsLine) {
  OnRandomDealers([](Dealer& dealer) {
    std::map<std::string, Currency> of_model;
    const RecordsetPtr report = dealer.Services(true);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["Particulars"].IsNull()) {
        of_model[row["Item_id"].ToText()] = AmountOf(row["ParticularsTotal"]);
      }
    }
    for (int model = 1; model <= kModels; ++model) {
      for (const bool detailed : {false, true}) {
        const RecordsetPtr bills = dealer.ServiceBills(model, detailed);
        bills->MoveLast();
        EXPECT_EQ(AmountOf(bills->Collect("TotalAmount")), of_model[std::to_string(model)]);
      }
    }
  });
}

TEST(RandomDealer, MechanicsHaveTheSameTotalsInSummaryAndByModel) {
  OnRandomDealers([](Dealer& dealer) {
    const auto total = [](const RecordsetPtr& report) {
      return TotalOf(report, {"TotalBillValue", "TotalLabourValue"});
    };
    EXPECT_EQ(total(dealer.Labour(kByVehicle, false)), total(dealer.Labour(kByVehicle, true)));
    // By item only mechanics with labour are listed, and all of the labour is.
    EXPECT_EQ(TotalOf(dealer.Labour(kByItem, false), {"TotalLabourValue"}),
              TotalOf(dealer.Labour(kByItem, true), {"TotalLabourValue"}));
  });
}

TEST(RandomDealer, AMechanicsLineSumsTheModelsBelowIt) {
  OnRandomDealers([](Dealer& dealer) {
    const RecordsetPtr report = dealer.Labour(kByVehicle, true);
    EXPECT_EQ(SumWhere(report, "TotalBill", "ParticularsHead"),
              SumWhere(report, "Bill", "Particulars"));
    EXPECT_EQ(SumWhere(report, "TotalLabourBill", "ParticularsHead"),
              SumWhere(report, "LabourBill", "Particulars"));
  });
}

TEST(RandomDealer, TheBillsOfAMechanicAddUpToHisLine) {
  OnRandomDealers([](Dealer& dealer) {
    for (const std::uint8_t by : {kByVehicle, kByItem}) {
      std::map<std::string, std::pair<Currency, Currency>> of_mechanic;
      const RecordsetPtr report = dealer.Labour(by, false);
      for (const Recordset::Row row : report->Rows()) {
        if (row["Mechanic_ID"].IsNull()) continue;
        of_mechanic[row["Mechanic_ID"].ToText()] = {AmountOf(row["TotalBill"]),
                                                    AmountOf(row["TotalLabourBill"])};
      }
      for (int mechanic = 1; mechanic <= kMechanics; ++mechanic) {
        const RecordsetPtr bills = dealer.LabourBills(by, by == kByItem, mechanic, 0);
        bills->MoveLast();
        const auto& [bill, labour] = of_mechanic[std::to_string(mechanic)];
        EXPECT_EQ(AmountOf(bills->Collect("TotalAmount")), bill);
        EXPECT_EQ(AmountOf(bills->Collect("TotalLabourAmount")), labour);
      }
    }
  });
}

TEST(RandomDealer, TheBillsOfALabourItemHaveTheLabourOfItsLine) {
  OnRandomDealers([](Dealer& dealer) {
    std::map<std::string, Currency> of_item;
    const RecordsetPtr report = dealer.Labour(kByItem, true, 1);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["Item_ID"].IsNull()) of_item[row["Item_ID"].ToText()] = AmountOf(row["LabourBill"]);
    }
    for (const int item : {21, 22}) {
      const RecordsetPtr bills = dealer.LabourBills(kByItem, false, 1, item);
      bills->MoveLast();
      EXPECT_EQ(AmountOf(bills->Collect("TotalLabourAmount")), of_item[std::to_string(item)]);
    }
  });
}

TEST(RandomDealer, FinanciersHaveTheSameTotalsUnderEveryLayout) {
  OnRandomDealers([](Dealer& dealer) {
    const auto total = [&](bool detailed, bool by_pin) {
      return TotalOf(dealer.Financiers(detailed, by_pin),
                     {"TotalSalesValue", "TotalVehicleAmtValue", "TotalQtyValue"});
    };
    EXPECT_EQ(total(true, false), total(false, false));
    EXPECT_EQ(total(false, true), total(false, false));
    EXPECT_EQ(total(true, true), total(false, false));
  });
}

TEST(RandomDealer, PinsSumTheirFinanciersAndFinanciersTheirModels) {
  OnRandomDealers([](Dealer& dealer) {
    const RecordsetPtr report = dealer.Financiers(true, true);
    EXPECT_EQ(SumWhere(report, "TotalSalesHead", "ParticularsHead"),
              SumWhere(report, "TotalSales", "Particulars"));
    EXPECT_EQ(SumWhere(report, "VehicleAmtHead", "ParticularsHead"),
              SumWhere(report, "VehicleAmtHypo", "Particulars"));
    EXPECT_EQ(SumWhere(report, "VehicleAmtHypo", "Particulars"),
              SumWhere(report, "VehicleAmt", "ItemName"));
    EXPECT_EQ(SumWhere(report, "QtyHypo", "Particulars"), SumWhere(report, "Qty", "ItemName"));
  });
}

TEST(RandomDealer, TheSalesOfAFinancierAddUpToHisLine) {
  OnRandomDealers([](Dealer& dealer) {
    std::map<std::string, Currency> of_financier;
    const RecordsetPtr report = dealer.Financiers(false, false);
    for (const Recordset::Row row : report->Rows()) {
      if (!row["Hypo_id"].IsNull()) {
        of_financier[row["Hypo_id"].ToText()] = AmountOf(row["TotalSales"]);
      }
    }
    for (int financier = 1; financier <= kFinanciers; ++financier) {
      const RecordsetPtr sales = dealer.FinancedSales(financier);
      sales->MoveLast();
      EXPECT_EQ(AmountOf(sales->Collect("TotalAmount")), of_financier[std::to_string(financier)]);
    }
  });
}

TEST(RandomDealer, TheHistoryHasEachBillOnceInBothLayouts) {
  OnRandomDealers([](Dealer& dealer) {
    const auto bills = [](const RecordsetPtr& report) {
      std::map<std::string, Currency> of_bill;
      for (const Recordset::Row row : report->Rows()) {
        if (row["Format"].ToText() != "2") continue;
        EXPECT_FALSE(of_bill.contains(row["Desr_id"].ToText()));
        of_bill[row["Desr_id"].ToText()] = row["TotalAmtSort"].ToCurrency();
      }
      return of_bill;
    };
    const RecordsetPtr detailed = dealer.History(true);
    EXPECT_EQ(bills(dealer.History(false)), bills(detailed));
    EXPECT_EQ(SumWhere(detailed, "ItemTotal", "ItemName"),
              SumWhere(detailed, "TotalAmt", "TotalAmt"));
  });
}

TEST(RandomDealer, LinesStayBelowTheirBillUnderAnySort) {
  OnRandomDealers([](Dealer& dealer) {
    const RecordsetPtr report = dealer.LabourBills(kByItem, true, 0, 0);
    for (const char* const order : {"AmountSort DESC, DummySort", "RefNoSort DESC", "DateSort",
                                    "ParticularsSort, RefNoSort", "MechanicNameSort"}) {
      report->Sort(order);
      std::string bill;
      for (const Recordset::Row row : report->Rows()) {
        if (row["RecordType"].IsNull()) continue;
        if (row["RecordType"].ToText() == "1") bill = row["RefNoSort"].ToText();
        EXPECT_EQ(row["RefNoSort"].ToText(), bill) << order;
      }
    }
  });
}

}  // namespace
}  // namespace pstolvane1
