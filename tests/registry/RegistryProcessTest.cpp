// Several processes on one store file: test_registry_writer does the writing.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QProcess>
#include <QTemporaryDir>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "Registry.h"

namespace {

constexpr int kWaitMs = 30000;  // a safety net only: nothing below waits for time to pass

class RegistryProcessTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid() && RegSetStorePath(path_.toUtf8().constData()));
        ASSERT_EQ(RegCreateKeyEx(HKEY_CURRENT_USER, "Software\\Race", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                                 nullptr),
                  ERROR_SUCCESS);
    }
    void TearDown() override {
        RegCloseKey(key_);
        RegSetStorePath(nullptr);
    }

    // A writer that has opened the store and waits for the word to go.
    std::unique_ptr<QProcess> start(const char* tag, int count) {
        auto p = std::make_unique<QProcess>();
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QStringLiteral(QUILLBOX_REGISTRY_WRITER), {path_, tag, QString::number(count)});
        EXPECT_TRUE(waitForLine(*p));
        EXPECT_EQ(p->readLine().trimmed(), "ready");
        return p;
    }
    static bool waitForLine(QProcess& p) {
        while (!p.canReadLine())
            if (!p.waitForReadyRead(kWaitMs)) return false;
        return true;
    }
    // Checks the value a writer wrote for i, whole.
    void expectWritten(const std::string& name, unsigned i) {
        std::vector<BYTE> data(8192);
        DWORD size = DWORD(data.size()), type = 0;
        ASSERT_EQ(RegQueryValueEx(key_, name.c_str(), nullptr, &type, data.data(), &size), ERROR_SUCCESS) << name;
        unsigned stored = 0;
        std::memcpy(&stored, data.data(), sizeof stored);
        EXPECT_TRUE(type == REG_BINARY && size == 4096 && stored == i && data[4095] == BYTE(i & 0xFF)) << name;
    }
    std::string nameAt(DWORD index) {
        char name[32];
        DWORD cch = sizeof name;
        return RegEnumValue(key_, index, name, &cch, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS ? name : "";
    }

    QTemporaryDir dir_;
    QString path_ = dir_.filePath("registry.sqlite");
    HKEY key_ = nullptr;
};

TEST_F(RegistryProcessTest, ConcurrentWritersLoseNothingAndWalksSeeTheirValues) {
    const DWORD one = 1;
    ASSERT_EQ(RegSetValueEx(key_, "own", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&one), sizeof one), ERROR_SUCCESS);
    EXPECT_EQ(nameAt(0), "own");  // a walk begins: the key's values are listed now

    // Both have the store open before either writes, so that their writes interleave.
    constexpr int kCount = 300;
    auto a = start("A", kCount), b = start("B", kCount);
    a->write("go\n");
    b->write("go\n");
    for (QProcess* p : {a.get(), b.get()}) {
        ASSERT_TRUE(p->waitForFinished(kWaitMs));
        EXPECT_EQ(p->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(p->exitCode(), 0);
    }
    // The list taken for index 0 is stale now: index 1 is a writer's first value.
    const std::string next = nameAt(1);
    EXPECT_TRUE(next == "A-0" || next == "B-0") << next;
    DWORD values = 0, counter = 0, size = sizeof counter;
    ASSERT_EQ(RegQueryInfoKey(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr,
                              nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(values, DWORD(2 * kCount + 2));
    for (const char* tag : {"A-", "B-"})
        for (unsigned i = 0; i < kCount; ++i) expectWritten(tag + std::to_string(i), i);
    ASSERT_EQ(RegQueryValueEx(key_, "Counter", nullptr, nullptr, reinterpret_cast<BYTE*>(&counter), &size), 0);
    EXPECT_EQ(counter, DWORD(2 * kCount));  // no increment lost to the other process
}

TEST_F(RegistryProcessTest, KilledWriterLeavesCommittedValues) {
    auto writer = start("v", 0);
    writer->write("go\n");
    // Kill it once it has reported 100 commits; it is writing the next one by then.
    std::vector<unsigned> committed;
    auto collect = [&] {
        while (writer->canReadLine()) committed.push_back(writer->readLine().trimmed().toUInt());
    };
    while (committed.size() < 100) {
        ASSERT_TRUE(waitForLine(*writer)) << "writer stopped after " << committed.size();
        collect();
    }
    writer->kill();  // SIGKILL
    ASSERT_TRUE(writer->waitForFinished(kWaitMs));
    EXPECT_EQ(writer->exitStatus(), QProcess::CrashExit);
    collect();  // lines it printed before dying; a partial last line is not counted

    // This process still has the store open; look at the file with a connection of its own.
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path_.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt* check = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(check), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)), "ok");
    sqlite3_finalize(check);
    sqlite3_close(db);

    ASSERT_TRUE(RegSetStorePath(path_.toUtf8().constData()));  // reopen from the file
    ASSERT_EQ(RegOpenKeyEx(HKEY_CURRENT_USER, "Software\\Race", 0, KEY_READ, &key_), ERROR_SUCCESS);
    for (unsigned i = 0; i < committed.size(); ++i) {
        ASSERT_EQ(committed[i], i);  // reported in order, none skipped
        expectWritten(std::string("v-").append(std::to_string(i)), i);
    }
}

}  // namespace
