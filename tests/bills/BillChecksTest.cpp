#include "bills/BillChecks.h"

#include "Draft.h"
#include "tests/support/Print.h"
#include <functional>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

using test::draftOf;
using test::TypedLine;

struct HeadCase
{
    const char *name;
    std::function<void(BillDraft &)> spoil;
    const char *message;
    const char *field;
};

// In the order in which they are told.
const std::vector<HeadCase> &headCases()
{
    static const std::vector<HeadCase> cases{
        {"Receiver", [](BillDraft &b) { b.code.clear(); }, "Please Select a 'Receiver'.", "txtpartynm"},
        {"Number", [](BillDraft &b) { b.number = "0123"; },
         "Please Specify a Valid 'Bill No.' (Numeric Only not leading with Zero)", "txtbillno"},
        {"Date", [](BillDraft &b) { b.date = "01/04/2025"; },
         "Please Specify a Valid 'Bill Date' between 01/04/2024 and 31/03/2025.", "txtbilldt"},
        {"Place", [](BillDraft &b) { b.state.clear(); }, "Please specify 'Place of Supply' !", "cboPOS"},
        {"Tax", [](BillDraft &b) { b.taxType.reset(); }, "Please specify 'Tax Applicability' !", "cboTaxType"},
    };
    return cases;
}

TEST(BillHead, WithoutAFaultPasses)
{
    EXPECT_FALSE(headFault(draftOf()));
}

TEST(BillHead, EachFaultHasItsMessageAndField)
{
    for (const HeadCase &c : headCases()) {
        BillDraft bill = draftOf();
        c.spoil(bill);
        const BillFault fault = headFault(bill).value_or(BillFault{});
        EXPECT_EQ(fault.message, c.message) << c.name;
        EXPECT_EQ(fault.field, c.field) << c.name;
        EXPECT_EQ(fault.row, -1);
    }
}

TEST(BillHead, FirstFaultIsTold)
{
    BillDraft bill = draftOf();
    const auto &cases = headCases();
    for (auto c = cases.rbegin(); c != cases.rend(); ++c) {
        c->spoil(bill);
        EXPECT_EQ(headFault(bill).value_or(BillFault{}).message, c->message) << "with all that follow it";
    }
}

struct LineCase
{
    const char *name;
    TypedLine typed;
    std::optional<TaxType> type;
    int column; ///< -1 for no fault
    const char *message;
};

class BillLineChecks : public testing::TestWithParam<LineCase>
{
};

TEST_P(BillLineChecks, PointAtTheCell)
{
    const LineCase &c = GetParam();
    // The faulty line stands behind a good one and a blank one.
    const BillDraft bill = draftOf({{{ParticularsColumn, "Good"}, {AmountColumn, "1"}}, {}, c.typed}, c.type);
    const auto found = lineFault(bill);
    ASSERT_EQ(found.has_value(), c.column >= 0);
    const BillFault fault = found.value_or(BillFault{.message = {}, .field = "vsB", .row = 5});
    EXPECT_EQ(fault.message, c.message);
    EXPECT_EQ(fault.field, "vsB");
    EXPECT_EQ(fault.row, 5);
    EXPECT_EQ(fault.column, c.column);
}

constexpr auto noParticulars = "Please specify 'Particulars' !";
constexpr auto noAmount = "Please specify Valid 'Amount' !";

INSTANTIATE_TEST_SUITE_P(
    Lines, BillLineChecks,
    testing::Values(
        LineCase{"AmountAlone", {{5, "10"}}, TaxType::Intra, 1, noParticulars},
        LineCase{"SacAlone", {{2, "998221"}}, TaxType::Intra, 1, noParticulars},
        LineCase{"PeriodAlone", {{3, "FY"}}, TaxType::Intra, 1, noParticulars},
        LineCase{"BlankParticulars", {{1, "   "}, {5, "10"}}, TaxType::Intra, 1, noParticulars},
        LineCase{"HandMadeTaxAlone", {{8, "Y"}, {14, "5"}}, TaxType::Intra, 1, noParticulars},
        LineCase{"NoAmount", {{1, "Audit"}}, TaxType::Intra, 5, noAmount},
        LineCase{"NegativeAmount", {{1, "Audit"}, {5, "-10"}, {6, "-20"}}, TaxType::Intra, 5, noAmount},
        LineCase{"NegativeDiscount",
                 {{1, "Audit"}, {5, "10"}, {6, "-1"}},
                 TaxType::Intra,
                 6,
                 "Please specify Valid 'Discount' !"},
        LineCase{"DiscountAboveAmount",
                 {{1, "Audit"}, {5, "10"}, {6, "11"}},
                 TaxType::Intra,
                 6,
                 "'Discount Amount' can not be more than 'Amount'."},
        LineCase{"DiscountOfAll", {{1, "Audit"}, {5, "10"}, {6, "10"}}, TaxType::Intra, -1, ""},
        LineCase{
            "CgstRate", {{1, "Audit"}, {5, "10"}, {9, "-1"}}, TaxType::Intra, 9, "Please specify Valid 'CGST (%)' !"},
        LineCase{"CgstAmount",
                 {{1, "Audit"}, {5, "10"}, {8, "Y"}, {10, "-1"}},
                 TaxType::Intra,
                 10,
                 "Please specify Valid 'CGST (Amount)' !"},
        LineCase{
            "SgstRate", {{1, "Audit"}, {5, "10"}, {11, "-1"}}, TaxType::Intra, 11, "Please specify Valid 'SGST (%)' !"},
        LineCase{"SgstAmount",
                 {{1, "Audit"}, {5, "10"}, {8, "Y"}, {12, "-1"}},
                 TaxType::Intra,
                 12,
                 "Please specify Valid 'SGST (Amount)' !"},
        LineCase{
            "IgstRate", {{1, "Audit"}, {5, "10"}, {13, "-1"}}, TaxType::Inter, 13, "Please specify Valid 'IGST (%)' !"},
        LineCase{"IgstAmount",
                 {{1, "Audit"}, {5, "10"}, {8, "Y"}, {14, "-1"}},
                 TaxType::Inter,
                 14,
                 "Please specify Valid 'IGST (Amount)' !"},
        LineCase{"HiddenIgstDoesNotCount", {{1, "Audit"}, {5, "10"}, {8, "Y"}, {14, "-1"}}, TaxType::Intra, -1, ""},
        LineCase{"HiddenCgstDoesNotCount", {{1, "Audit"}, {5, "10"}, {8, "Y"}, {10, "-1"}}, TaxType::Inter, -1, ""},
        LineCase{"ExemptHasNoTaxToCheck",
                 {{1, "Audit"}, {5, "10"}, {8, "Y"}, {10, "-1"}, {13, "-1"}},
                 TaxType::None,
                 -1,
                 ""},
        LineCase{"ColumnsAreTakenInOrder", {{6, "5"}, {9, "-1"}, {13, "-1"}}, TaxType::Intra, 1, noParticulars}),
    [](const auto &line) { return std::string(line.param.name); });

TEST(BillLinesCheck, FirstFaultyLineIsTold)
{
    const BillDraft bill = draftOf({{{ParticularsColumn, "No amount"}}, {{AmountColumn, "10"}}});
    const BillFault fault = lineFault(bill).value_or(BillFault{});
    EXPECT_EQ(fault.row, 3);
    EXPECT_EQ(fault.column, 5);
}

TEST(BillLinesCheck, NeedOneLine)
{
    const BillFault fault = lineFault(draftOf({})).value_or(BillFault{});
    EXPECT_EQ(fault.message, "Please specify atleast one 'Particular'.");
    EXPECT_EQ(fault.field, "vsB");
    EXPECT_EQ(fault.row, 3);
    EXPECT_EQ(fault.column, 1);
}

} // namespace
} // namespace ledgora
