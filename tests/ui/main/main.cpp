#include "ui/main/application.h"
#include "ui/main/window_test.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    tessel::Application application(argc, argv,
                                    [](const std::string& what) { tessel::test::reported.push_back(what); });
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
