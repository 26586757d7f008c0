#include "platform/qt/QtSerialPort.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <fstream>
#include <memory>

#include "base/RuntimeError.h"
#include "platform/qt/QtPortList.h"
#include "support/PtyLine.h"
#include "support/TemporaryFolder.h"

namespace ornivane {
namespace {

// Runs an action when the first event for an object is about to be delivered.
class BeforeFirstEvent : public QObject {
public:
    explicit BeforeFirstEvent(std::function<void()> before) : action(std::move(before)) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MetaCall && action) std::exchange(action, nullptr)();
        return false;
    }

private:
    std::function<void()> action;
};

class QtSerialPortTest : public testing::Test {
protected:
    QtSerialPortTest() {
        Port.OnEvent([this](SerialEvent event) {
            Events += event == SerialEvent::Receive ? 'R' : event == SerialEvent::Break ? 'B' : 'O';
            if (event == SerialEvent::Receive) Bytes += Port.ReadAll();
            if (Handler) Handler();
        });
    }

    // Runs the event loop until it is so, five seconds at most.
    template <typename Condition>
    void WaitUntil(Condition condition) {
        QElapsedTimer since;
        since.start();
        while (!condition() && since.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        EXPECT_TRUE(condition());
    }

    ErrorNumber ErrorOf(int number) {
        const auto error = ornivane::ErrorOf([&] { Port.Open(number); });
        return error ? error->Number() : ErrorNumber{};
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QCoreApplication> Application =
        QCoreApplication::instance() ? nullptr : std::make_unique<QCoreApplication>(argc, argv);
    TemporaryFolder Folder;
    std::filesystem::path Link = Folder.Path() / "Ports" / "COM7";
    QtSerialPort Port{PortDevices(Folder.Path())};
    std::string Events, Bytes;
    std::function<void()> Handler;
};

TEST_F(QtSerialPortTest, ReadsTellsOneHangUpAndComesBack) {
    PtyLine line(Link);
    Port.SetSettings("57600,n,8,1");
    Port.Open(7);
    ASSERT_TRUE(Port.IsOpen());
    line.Send("$first\r\n");
    WaitUntil([&] { return Bytes == "$first\r\n"; });

    // The line ends while the last words are on their way through the queue.
    BeforeFirstEvent hangUp([&] {
        line.HangUp();
        WaitUntil([&] { return !Port.IsOpen(); });
    });
    Port.installEventFilter(&hangUp);
    line.Send("last");
    WaitUntil([&] { return Bytes == "$first\r\nlast"; });
    WaitUntil([&] { return Events.find('O') != std::string::npos; });
    EXPECT_FALSE(Port.IsOpen());

    // Quiet from here on: the event loop sleeps instead of repeating the error.
    int rounds = 0;
    QTimer end;
    end.setSingleShot(true);
    end.start(200);
    while (end.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ++rounds;
    }
    EXPECT_LT(rounds, 10);
    EXPECT_EQ(std::count(Events.begin(), Events.end(), 'O'), 1);
    EXPECT_EQ(ErrorOf(7), ErrorNumber::FileNotFound);

    line.PlugIn();
    Port.Open(7);
    line.Send("again");
    WaitUntil([&] { return Bytes.ends_with("again"); });
}

TEST_F(QtSerialPortTest, ReadsOnWhileAHandlerWaitsInAnEventLoopOfItsOwn) {
    PtyLine line(Link);
    Port.Open(7);
    Handler = [&] {
        Handler = nullptr;
        line.Send("two");
        WaitUntil([&] { return Bytes == "onetwo"; });
    };
    line.Send("one");
    WaitUntil([&] { return Bytes == "onetwo"; });
}

TEST_F(QtSerialPortTest, DropsWhatAnEarlierConnectionLeftInTheQueue) {
    PtyLine line(Link);
    Port.Open(7);
    bool reopened = false;
    BeforeFirstEvent reopen([&] {
        line.PlugIn();
        Port.Open(7);
        reopened = true;
    });
    Port.installEventFilter(&reopen);
    line.HangUp();
    WaitUntil([&] { return reopened; });
    line.Send("new");
    WaitUntil([&] { return Bytes == "new"; });
    EXPECT_EQ(Events.find('O'), std::string::npos);
    Port.Close();
    line.Send("unheard");
    QCoreApplication::processEvents();
    EXPECT_EQ(Bytes + Port.ReadAll(), "new");
}

TEST_F(QtSerialPortTest, TellsWhyAPortDoesNotOpen) {
    EXPECT_EQ(ErrorOf(0), ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOf(21), ErrorNumber::FileNotFound);
    std::filesystem::create_directories(Link.parent_path());
    std::filesystem::create_symlink("/dev/no-such-device", Link);
    EXPECT_EQ(ErrorOf(7), ErrorNumber::FileNotFound);
    std::filesystem::remove(Link);
    std::filesystem::create_symlink("/dev/null", Link);
    EXPECT_EQ(ErrorOf(7), ErrorNumber::DeviceError);
    EXPECT_FALSE(Port.IsOpen());

    PtyLine line(Link);
    QtSerialPort other{PortDevices(Folder.Path())};
    other.Open(7);
    EXPECT_EQ(ErrorOf(7), ErrorNumber::FileAlreadyOpen);
    other.Close();
    Port.Open(7);
}

TEST_F(QtSerialPortTest, OffersTerminalsOnlyAndTellsTheirDevice) {
    const QtPortList ports{PortDevices(Folder.Path())};
    {
        PtyLine line(Link);
        EXPECT_TRUE(ports.Exists(7));
        EXPECT_EQ(ports.Description(7), std::filesystem::read_symlink(Link));
        Port.Open(7);
        EXPECT_TRUE(ports.Exists(7)); // held by a program, and still there
        line.HangUp();
        EXPECT_FALSE(ports.Exists(7));
    }
    std::filesystem::remove(Link);
    std::filesystem::create_symlink("/dev/null", Link);
    EXPECT_FALSE(ports.Exists(7));
    std::filesystem::remove(Link);
    std::ofstream(Link) << "no device";
    EXPECT_FALSE(ports.Exists(7));
    EXPECT_EQ(ports.Description(7), "");
    EXPECT_FALSE(ports.Exists(21));
    // Only a chip of its own makes the first four.
    std::ifstream type("/sys/class/tty/ttyS3/type");
    int chip = 0;
    type >> chip;
    EXPECT_EQ(ports.Exists(4), chip != 0 && std::filesystem::exists("/dev/ttyS3"));
}

} // namespace
} // namespace ornivane
