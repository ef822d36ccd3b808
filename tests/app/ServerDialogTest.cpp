// The choice of the database server, by keys.

#include "app/ServerDialog.h"

#include "support/Screens.h"
#include <QLabel>

namespace ledgora::test {
namespace {

class ServerDialogTest : public ScreenTest
{
protected:
    void open() { show(new app::ServerDialog(folder())); }
    app::ServerChoice saved() const { return app::ServerChoice::saved(folder()); }
};

TEST_F(ServerDialogTest, SharedServerIsSavedByKeysAndShownAgain)
{
    open();
    EXPECT_FALSE(find<QWidget>("txtServerHost")->isEnabled()) << "the private server needs no address";
    press(Qt::Key_Down);
    const struct
    {
        char key;
        const char *field, *message;
    } needed[] = {{'S', "txtServerHost", "Please specify the name or address of the server."},
                  {'U', "txtServerUser", "Please specify the user of the database."}};
    for (const auto &[key, field, message] : needed) {
        boxes.expect(message);
        alt('V');
        EXPECT_EQ(focus(), field);
        alt(key);
        type(key == 'S' ? "10.0.0.5" : "ram @home");
    }
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    alt('W');
    type("/home/ram/my password");
    boxes.expect("The choice holds when Ledgora is started the next time.");
    alt('V');
    EXPECT_EQ(saved().address, "mysql://ram%20%40home@10.0.0.5/ledgora?tls=required");
    EXPECT_EQ(saved().passwordFile, "/home/ram/my password");

    open();
    EXPECT_EQ(text("txtServerUser"), "ram @home");
    EXPECT_TRUE(find<QWidget>("txtServerHost")->isEnabled());
    find<QWidget>("optServerShared")->setFocus();
    press(Qt::Key_Up);
    boxes.expect("The choice holds when Ledgora is started the next time.");
    alt('V');
    EXPECT_EQ(saved().address, "");
}

TEST_F(ServerDialogTest, TryingTellsWhatIsWrong)
{
    open();
    press(Qt::Key_Down);
    retype("txtServerHost", "localhost");
    retype("txtServerPort", "1");
    retype("txtServerUser", "ram");
    retype("txtServerPassword", folder() + "/none");
    alt('R');
    EXPECT_EQ(find<QLabel>("lblServerState")->text(), "The password file [" + folder() + "/none] can not be read.");
}

} // namespace
} // namespace ledgora::test
