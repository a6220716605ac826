// What receiving costs with the terminal visible, against a bare text window that shows the same bytes in batches. A
// child process plays the radio on a pty: answers as the radio sends them, without line ends.
//
//   bench_receive bare|korvex BYTES BYTES_PER_SECOND(0: as fast as it goes)
//   prints: CPU ms per MB, answers lost, longest standstill of the window in ms, PSS in MiB at a quarter, half, the end

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QSerialPort>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

#include "Measure.h"
#include "app/Program.h"
#include "desktop/ui/RunProgram.h"

namespace korvex::bench {
namespace {

constexpr std::string_view answerText = "FA14250000;";

struct Radio {
    int master = -1;
    std::string device;
    pid_t child = -1;
};

Radio makeRadio() {
    Radio radio;
    int slave = -1;
    char name[256] = {};
    if (::openpty(&radio.master, &slave, name, nullptr, nullptr) != 0) std::abort();
    termios raw{};
    ::tcgetattr(slave, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(slave, TCSANOW, &raw);
    radio.device = name;
    return radio;
}

/// The child waits for the first byte from the program's communication test, or for nobody, and then talks.
void startTalking(Radio& radio, long bytes, long perSecond) {
    radio.child = ::fork();
    if (radio.child != 0) return;
    const long answers = bytes / static_cast<long>(answerText.size());
    const long perRound = perSecond == 0 ? 400 : std::max(1L, perSecond / 100 / static_cast<long>(answerText.size()));
    std::string round;
    for (long i = 0; i < perRound; ++i) round += answerText;
    for (long sent = 0; sent < answers; sent += perRound) {
        std::string_view rest(round);
        if (answers - sent < perRound)
            rest = rest.substr(0, static_cast<std::size_t>(answers - sent) * answerText.size());
        while (!rest.empty()) {
            const auto written = ::write(radio.master, rest.data(), rest.size());
            if (written <= 0) ::_exit(1);
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
        const long roundBytes = perRound * static_cast<long>(answerText.size());
        if (perSecond > 0) ::usleep(static_cast<useconds_t>(1'000'000L * roundBytes / perSecond));
    }
    ::pause();
    ::_exit(0);
}

/// Counts answers as they come and tells when all are there, or when nothing more comes.
class Watch {
public:
    Watch(long bytes, std::function<void()> done)
        : m_expected(bytes / static_cast<long>(answerText.size())), m_done(std::move(done)) {
        m_heart.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_heart, &QTimer::timeout, [this] { beat(); });
        m_heart.start(5);
        m_sinceBeat.start();
        m_sinceAnswer.start();
        m_cpuAtStart = cpuMs();
    }
    void count(long answers) {
        m_answers += answers;
        m_sinceAnswer.restart();
        const long quarter = m_expected / 4;
        while (m_memory.size() < 4 && m_answers >= quarter * static_cast<long>(m_memory.size() + 1)) {
            m_memory.push_back(pssMiB());
        }
    }

private:
    void beat() {
        m_longest = std::max(m_longest, m_sinceBeat.restart());
        if (m_answers < m_expected && m_sinceAnswer.elapsed() < 3000) return;
        m_heart.stop();
        const double megabytes = static_cast<double>(m_expected) * static_cast<double>(answerText.size()) / 1e6;
        std::printf("%.1f %ld %lld", (cpuMs() - m_cpuAtStart) / megabytes, m_expected - m_answers,
                    static_cast<long long>(m_longest));
        for (const double pss : m_memory) std::printf(" %.1f", pss);
        std::printf("\n");
        std::fflush(stdout);
        m_done();
    }

    long m_expected;
    long m_answers = 0;
    std::function<void()> m_done;
    QTimer m_heart;
    QElapsedTimer m_sinceBeat;
    QElapsedTimer m_sinceAnswer;
    qint64 m_longest = 0;
    double m_cpuAtStart = 0;
    std::vector<double> m_memory;
};

int runBare(Radio& radio, long bytes, long perSecond) {
    QPlainTextEdit text;
    text.setReadOnly(true);
    text.setUndoRedoEnabled(false);
    text.setMaximumBlockCount(4000);
    text.setLineWrapMode(QPlainTextEdit::NoWrap);
    text.resize(433, 400);
    text.show();
    QSerialPort port(QString::fromStdString(radio.device));
    port.setBaudRate(38400);
    if (!port.open(QIODevice::ReadWrite)) return 1;
    std::optional<Watch> watch;
    QByteArray pending;
    QTimer batch;
    batch.setSingleShot(true);
    QObject::connect(&port, &QSerialPort::readyRead, [&] {
        pending += port.readAll();
        if (!batch.isActive()) batch.start(25);
    });
    QObject::connect(&batch, &QTimer::timeout, [&] {
        watch->count(pending.count(';'));
        pending.replace(";", ";\n");
        text.moveCursor(QTextCursor::End);
        text.insertPlainText(QString::fromLatin1(pending));
        pending.clear();
    });
    QTimer::singleShot(1500, [&] {
        watch.emplace(bytes, [] { QApplication::quit(); });
        startTalking(radio, bytes, perSecond);
    });
    return QApplication::exec();
}

int runKorvex(Radio& radio, long bytes, long perSecond) {
    QTemporaryDir folder;
    StartOptions options;
    options.settingsFile = folder.filePath(QStringLiteral("korvex.ini")).toStdString();
    options.programFolder = folder.path().toStdString();
    options.ports[1] = radio.device;
    std::optional<Watch> watch;
    Connection counting;
    return runProgram(options, [&](Program& program) {
        program.startWindow.Command1_Click(StartWindow::Terminal);
        QTimer::singleShot(800, [&] { program.link.togglePort(); });
        QTimer::singleShot(2500, [&] {
            watch.emplace(bytes, [] { QApplication::quit(); });
            counting = program.link.came.connect(
                [&](std::string_view wire) { watch->count(std::count(wire.begin(), wire.end(), ';')); });
            startTalking(radio, bytes, perSecond);
        });
    });
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    QApplication application(argc, argv);
    auto radio = korvex::bench::makeRadio();
    const long bytes = std::atol(argv[2]);
    const long perSecond = std::atol(argv[3]);
    const bool bare = std::strcmp(argv[1], "bare") == 0;
    const int result =
        bare ? korvex::bench::runBare(radio, bytes, perSecond) : korvex::bench::runKorvex(radio, bytes, perSecond);
    if (radio.child > 0) {
        ::kill(radio.child, SIGKILL);
        ::waitpid(radio.child, nullptr, 0);
    }
    return result;
}
