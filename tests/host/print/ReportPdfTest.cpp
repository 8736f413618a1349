// A host in C prints.
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "host/print/c/pstolvane1_print_c.h"
#include "tests/automation/SampleCompany.h"

namespace pstolvane1::print {
namespace {

constexpr const char* kAsked =
    R"({"bytYearno":1,"lngVouchertype_id":10,"dtFromDate":"2003-04-01","dtToDate":"2004-03-31"})";

class ReportPdf : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(pst_session_connect(session_.get(), company_.File().c_str()), pst_ok);
    pst_rowset* sales = nullptr;
    ASSERT_EQ(pst_call_json(session_.get(), "Doc_Initial", kAsked, &sales, nullptr), pst_ok);
    sales_.reset(sales);
  }

  std::int32_t Print(const pst_rowset* rowset, const char* operation, const char* paper) {
    char* pdf = nullptr;
    std::size_t size = 0;
    const std::int32_t number = pst_report_pdf(session_.get(), rowset, operation, kAsked,
                                               "Asha Motors", "en_IN", paper, &pdf, &size);
    file_.assign(pdf != nullptr ? pdf : "", size);
    pst_text_free(pdf);
    return number;
  }

  automation::SampleCompany company_;
  std::unique_ptr<pst_session, decltype(&pst_session_free)> session_{pst_session_new(),
                                                                     &pst_session_free};
  std::unique_ptr<pst_rowset, decltype(&pst_rowset_free)> sales_{nullptr, &pst_rowset_free};
  std::string file_;
};

TEST_F(ReportPdf, IsAWholeFileOnThePaperThatIsAskedFor) {
  ASSERT_EQ(Print(sales_.get(), "Doc_Initial", nullptr), pst_ok) << pst_error_text();
  EXPECT_TRUE(file_.starts_with("%PDF-"));
  EXPECT_TRUE(file_.ends_with("%%EOF\n"));
  EXPECT_NE(file_.find("/MediaBox [ 0 0 595.276"), std::string::npos);
  EXPECT_NE(file_.find("/Title (Documents by party)"), std::string::npos);
  EXPECT_NE(file_.find("/Author (Asha Motors)"), std::string::npos);
  ASSERT_EQ(Print(sales_.get(), "Doc_Initial", "letter"), pst_ok) << pst_error_text();
  EXPECT_NE(file_.find("/MediaBox [ 0 0 612 792 ]"), std::string::npos);
}

TEST_F(ReportPdf, FailsWithNothingGiven) {
  EXPECT_EQ(Print(nullptr, "Doc_Initial", nullptr), 91);
  EXPECT_EQ(Print(sales_.get(), "Nothing", nullptr), 3001);
  EXPECT_EQ(Print(sales_.get(), "Doc_Initial", "wall"), 3001);
  EXPECT_STREQ(pst_error_text(), "paper is A4, A3, Letter or Legal, not \"wall\"");
  EXPECT_EQ(file_, "");
  char* pdf = nullptr;
  EXPECT_EQ(pst_report_pdf(session_.get(), sales_.get(), "Doc_Initial", kAsked, nullptr, nullptr,
                           nullptr, &pdf, nullptr),
            91);
  EXPECT_EQ(pdf, nullptr);
}

}  // namespace
}  // namespace pstolvane1::print
