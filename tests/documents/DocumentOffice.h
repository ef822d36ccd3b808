#pragma once

#include "host/WorkingState.h"
#include "tests/support/Screens.h"
#include <QFile>

namespace ledgora::test {

/// Company 1 of Delhi with two clients, bills of each kind of tax and receipts of each kind of money.
class DocumentOffice : public ScreenTest
{
protected:
    void SetUp() override
    {
        ScreenTest::SetUp();
        addCompany(1, "SHARMA & ASSOCIATES");
        addClient(1, "ASHOK TRADERS", "DELHI");
        addClient(2, "BHARAT MILLS", "MAHARASHTRA");
        data().run("Insert Into GST_Series Values (4,'B',2024,'AB/##/24','P'),(5,'R',2024,'/R','S')");
        const QStringList bills{"(1,1,2024,'%1',4,7,'2024-05-01','DELHI','INTRA','Narration')",
                                "(2,1,2024,'%2',0,8,'2024-05-02','MAHARASHTRA','INTER','')",
                                "(3,1,2024,'%1',4,9,'2024-05-03','DELHI','NO','')"};
        data().run(QString("Insert Into GST_BillM Values " + bills.join(',')).arg(clientCode(1), clientCode(2)));
        data().run("Insert Into GST_BillD Values "
                   "(1,1,'Audit','998221','FY',2024,1100,100,1000,'N',9,90,9,90,0,0,1180),"
                   "(1,2,'Advice','','AY',2023,500,0,500,'N',2.5,13,2.5,13,0,0,526),"
                   "(2,1,'Returns','998231','',0,2000,0,2000,'N',0,0,0,0,18,360,2360),"
                   "(3,1,'Stamps','','',0,300,0,300,'N',0,0,0,0,0,0,300)");
        const QStringList receipts{
            "(1,1,2024,'%1',5,1,'2024-06-01',1000,'1',500,'SBI','Fort','004512','01/06/2024','On account')",
            "(2,1,2024,'%2',0,2,'2024-06-02',0,'4',2000,'UTR 5','','','','')",
            "(3,1,2024,'%1',5,3,'2024-06-03',280,'0',0,'','','','','')"};
        data().run(QString("Insert Into GST_RecpM Values " + receipts.join(',')).arg(clientCode(1), clientCode(2)));
        data().run("Insert Into GST_RecpD Values (1,1,1,1300,0,0),(1,2,3,200,0,0),(2,1,2,2100,60,100),"
                   "(3,1,1,200,50,20),(3,2,3,100,0,0)");
        CompanyState company;
        company.firmId = 1;
        company.billCopy = company.recpCopy = 0;
        company.apply();
        for (const char *name : {"Intra_Bill", "Inter_Bill", "NoTax_Bill", "Receipt"}) {
            QFile file(folder() + "/GST_Templates/GST_" + name + ".doc");
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write("{\\rtf1}");
        }
    }
};

} // namespace ledgora::test
