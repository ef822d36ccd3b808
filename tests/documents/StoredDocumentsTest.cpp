#include "DocumentOffice.h"

#include "bills/frmBillGST.h"
#include "documents/StoredBill.h"
#include "documents/StoredReceipt.h"
#include "masters/CompanyStore.h"
#include "receipts/frmRecpGST.h"

namespace ledgora {
namespace {

class StoredDocuments : public test::DocumentOffice
{
protected:
    static QStringList texts(const std::vector<Placeholder> &placeholders)
    {
        test::NotingReporter reporter;
        test::NotingReporter::asked().clear();
        for (const Placeholder &placeholder : placeholders)
            reporter.SetText(placeholder.name, placeholder.value);
        return test::NotingReporter::asked();
    }
    static QStringList storedTexts(StoredBill bill)
    {
        Recordset firm = companyRow(data().db(), 1);
        bill.document.firm = firmTexts(firm, DocumentKind::Bill);
        return texts(billPlaceholders(bill.document).value_or(std::vector<Placeholder>()));
    }
    static QStringList storedTexts(StoredReceipt receipt)
    {
        Recordset firm = companyRow(data().db(), 1);
        receipt.document.firm = firmTexts(firm, DocumentKind::Receipt);
        return texts(receiptPlaceholders(receipt.document));
    }
    /// What the preview of each document of the open screen asks of the engine, without template and viewer.
    QList<QStringList> previews(int count)
    {
        QList<QStringList> all;
        for (int i = 0; i < count; ++i) {
            test::NotingReporter::asked().clear();
            alt('P');
            const QStringList asked = test::NotingReporter::asked();
            all << asked.mid(1, asked.size() - 2);
            alt('T');
        }
        return all;
    }
};

TEST_F(StoredDocuments, AreWhatThePreviewOfTheScreenShows)
{
    const QList<int> ids{1, 2, 3};
    show(new frmBillGST);
    const QList<QStringList> bills = previews(3);
    delete screen();
    show(new frmRecpGST);
    const QList<QStringList> receipts = previews(3);
    QFile::remove(folder() + "/GST_Templates/GST_Receipt.doc");
    boxes.expect("Missing Template File [" + folder() + "/GST_Templates/GST_Receipt.doc]");
    alt('P');
    DocumentParties parties(data().db(), "C");
    const auto storedB = storedBills(data().db(), ids, parties);
    const auto storedR = storedReceipts(data().db(), ids, parties);
    ASSERT_EQ(storedB.size(), 3U);
    ASSERT_EQ(storedR.size(), 3U);
    for (qsizetype i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(storedTexts(storedB[size_t(i)]), bills[i]) << "bill " << ids[i];
        EXPECT_EQ(storedTexts(storedR[size_t(i)]), receipts[i]) << "receipt " << ids[i];
    }
    EXPECT_TRUE(receipts[0].contains("#RCPT_NO#=1/R"));
    EXPECT_TRUE(receipts[2].contains(
        "#BILL_REFERENCES#=Bill No. AB/7/24 Dated 01/05/2024 Amounting Rs. 1706 : Rs. 200\r\nBill No. AB/9/24 Dated "
        "03/05/2024 Amounting Rs. 300 : Rs. 100"));
    EXPECT_TRUE(bills[0].contains("#YR_2#=A.Y.\r\n2023-24"));
}

TEST_F(StoredDocuments, KeepWhatTheTablesHoldWhereAScreenWouldNotShowIt)
{
    data().run("Update GST_BillD Set SAC=' 99 ',IGST=7 Where BillId=1 and SrNo=1");
    data().run("Update GST_BillM Set Code_No='GONE',AppTaxType='VAT' Where BillSrNo=2");
    data().run("Delete From GST_BillM Where BillSrNo=3");
    for (int line = 2; line <= 11; ++line)
        data().run(
            QString("Insert Into GST_BillD Select 2,%1,part,SAC,YrType,Yr,1,0,1,'N',0,0,0,0,0,0,1 From GST_BillD "
                    "Where BillId=2 and SrNo=1")
                .arg(line));
    data().run("Insert Into Comp_Master (CompSrNo,Code,Nm,State) Values (1,'A1','NEW NAME LTD.','DELHI')");
    data().run("Insert Into ChangeName Values (1,'2023-24','2023-06-01','OLD NAME LTD.'),"
               "(1,'2025-26','2025-06-01','NEW NAME LTD.')");
    data().run("Update GST_BillM Set Code_No='A1' Where BillSrNo=1");
    DocumentParties parties(data().db(), "C");
    const auto bills = storedBills(data().db(), {2, 99, 1}, parties);
    ASSERT_EQ(bills.size(), 2U) << "the one that is not there is left out";
    EXPECT_EQ(bills[0].id, 2) << "in the order asked for";
    EXPECT_FALSE(bills[0].taxType.has_value());
    EXPECT_EQ(bills[0].document.partyName, "");
    EXPECT_FALSE(billPlaceholders(bills[0].document).has_value()) << "eleven lines";
    const QStringList shown = storedTexts(bills[1]);
    EXPECT_TRUE(shown.contains("#SAC_1#= 99 "));
    EXPECT_TRUE(shown.contains("#PARTY_NAME#=Old Name Ltd.")) << "as in the bill's year";
    EXPECT_EQ(bills[1].document.totals.igst, 0) << "tax of another kind counts in no sum";
    const auto receipts = storedReceipts(data().db(), {3}, parties);
    ASSERT_EQ(receipts.size(), 1U);
    EXPECT_EQ(receipts[0].document.bills.size(), 1U);
    EXPECT_EQ(receipts[0].document.sums.amount, 300) << "what was received on the bill that is gone counts";
}

} // namespace
} // namespace ledgora
