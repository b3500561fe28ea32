#include "ui/main/application.h"

#include "ui/controls/connect.h"
#include "ui/main/window_test.h"

namespace {

// What a slot threw fails the test that did not expect it.
class ReportedFailures : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(qApp, tessel::Failure::EventType());
        EXPECT_EQ(std::exchange(tessel::test::reported, {}), tessel::test::Lines{});
    }
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    tessel::Application application(argc, argv,
                                    [](const std::string& what) { tessel::test::reported.push_back(what); });
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new ReportedFailures);
    return RUN_ALL_TESTS();
}
