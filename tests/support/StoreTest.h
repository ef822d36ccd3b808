#pragma once

#include "Database.h"
#include "Log.h"
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace ledgora {
class Cells;
}

namespace ledgora::test {

/// Tests of what reaches the database and comes back: one database a suite, empty at the start of each test.
class StoreTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { database = std::make_unique<Database>(); }
    static void TearDownTestSuite() { database.reset(); }
    void SetUp() override { database->empty(); }

    static Connection &db() { return database->db(); }
    static QStringList rows(const QString &sql) { return database->rows(sql); }

    static inline std::unique_ptr<Database> database;
    Log log;
};

/// The rows below the heading, cells joined with "|".
QStringList linesOf(const Cells &cells);

} // namespace ledgora::test
