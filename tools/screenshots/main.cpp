#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QToolButton>
#include <QToolTip>
#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>

#include "core/options.h"
#include "core/outcome.h"
#include "monitor/recording.h"
#include "platform/portable/portable_machine.h"
#include "platform/services.h"
#include "platform/tracing.h"
#include "ui/face/change_log.h"
#include "ui/face/printed_dialog.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/forms/windows.h"
#include "ui/qt/face.h"
#include "ui/qt/face_style.h"

namespace {

using namespace kestrune;

struct Arguments {
  QString folder;
  QByteArray scale = "1";
  QString scheme = "light";
  std::string machine;
  std::string language;
};

std::optional<Arguments> Parse(int count, char** values) {
  Arguments arguments;
  for (int i = 1; i < count; ++i) {
    const std::string_view value = values[i];
    const std::string_view next = i + 1 < count ? values[i + 1] : "";
    if (value == "--scale" && (next == "1" || next == "2")) {
      arguments.scale = values[++i];
    } else if (value == "--scheme" && (next == "light" || next == "dark" || next == "contrast")) {
      arguments.scheme = values[++i];
    } else if (value == "--machine" && !next.empty()) {
      arguments.machine = values[++i];
    } else if (value == "--language" && !next.empty()) {
      arguments.language = values[++i];
    } else if (arguments.folder.isEmpty() && !value.starts_with("--")) {
      arguments.folder = values[i];
    } else {
      return std::nullopt;
    }
  }
  if (arguments.folder.isEmpty()) return std::nullopt;
  return arguments;
}

/// What a desktop says of its colours; the program's style makes of it what it always does.
QPalette MakePalette(const QString& scheme) {
  QPalette palette;
  if (scheme == "dark") {
    palette = QPalette(QColor(53, 53, 57), QColor(42, 42, 46));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
  } else if (scheme == "contrast") {
    palette = QPalette(Qt::black, Qt::black);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(role, Qt::white);
      palette.setColor(QPalette::Disabled, role, Qt::darkGreen);
    }
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
  } else {
    palette = QApplication::style()->standardPalette();
  }
  QApplication::style()->polish(palette);
  return palette;
}

class Photographer {
 public:
  Photographer(forms::Program& program, qt::Face& face, platform::FilesApi& files,
               const QDir& folder)
      : program_(program), face_(face), files_(files), folder_(folder) {}

  bool TakeAll() {
    TakePages();
    TakeOverclocking();
    TakeMenu();
    TakeLowerPanel();
    TakeHelp();
    TakeReason();
    TakeChange();
    TakeRegistryEditor();
    TakeProfileManager();
    TakeAbout();
    TakeMonitoring();
    TakeWizard();
    return all_saved_;
  }

 private:
  QWidget& Window() { return *face_.ViewOf(program_.Main()); }

  void Save(const QPixmap& picture, const QString& name) {
    const QString file = folder_.filePath(name + ".png");
    const bool saved = picture.save(file);
    if (!saved) std::fprintf(stderr, "can't write %s\n", qPrintable(file));
    all_saved_ = all_saved_ && saved;
  }

  void GoTo(std::string_view page_id) {
    program_.GoToPage(program_.PageOf(*program_.Find(page_id)));
    QCoreApplication::processEvents();
  }

  /// What this machine's window refuses is left out of the picture.
  void Act(const controls::Control& control, const std::function<void()>& act) {
    core::Ignore(program_.Gate().Act(control, [&act] {
      act();
      return true;
    }));
  }

  void TakePages() {
    for (int page = 0; page < forms::PageCount(); ++page) {
      const std::string_view id = forms::kPages[static_cast<std::size_t>(page)].id;
      GoTo(id);
      const QString name = QString::fromUtf8(id.data(), static_cast<qsizetype>(id.size()));
      const QString file = QString("page-%1-%2").arg(page, 2, 10, QChar('0')).arg(name);
      SaveWithTree(Window(), file);
    }
  }

  /// What assistive technology hears of a widget and of all in it: role, name, value, description.
  QString TreeOf(const QAccessibleInterface& heard, const QString& indent) {
    if (heard.state().invisible) return {};
    QString text = indent + QVariant::fromValue(heard.role()).toString();
    for (const QAccessible::Text kind :
         {QAccessible::Name, QAccessible::Value, QAccessible::Description}) {
      if (!heard.text(kind).isEmpty()) text += " \"" + heard.text(kind) + '"';
    }
    if (heard.state().disabled) text += " disabled";
    if (heard.state().checked) text += " checked";
    if (heard.state().selected) text += " selected";
    text += '\n';
    for (int i = 0; i < heard.childCount(); ++i) text += TreeOf(*heard.child(i), indent + "  ");
    return text;
  }

  void SaveWithTree(QWidget& window, const QString& name) {
    Save(window.grab(), name);
    SaveText(TreeOf(*QAccessible::queryAccessibleInterface(&window), ""), name);
  }

  void SaveText(const QString& text, const QString& name) {
    QFile file(folder_.filePath(name + ".txt"));
    all_saved_ = file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && all_saved_;
  }

  /// Both widgets as they stand on the screen, `second` over or beside `first`.
  QPixmap Together(QWidget& first, QWidget& second) {
    const QRect first_place(first.mapToGlobal(QPoint()), first.size());
    const QRect second_place(second.mapToGlobal(QPoint()), second.size());
    const QRect all = first_place.united(second_place);
    const qreal ratio = first.devicePixelRatioF();
    QPixmap picture(all.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(QApplication::palette().color(QPalette::Dark));
    QPainter painter(&picture);
    painter.drawPixmap(first_place.topLeft() - all.topLeft(), first.grab());
    painter.drawPixmap(second_place.topLeft() - all.topLeft(), second.grab());
    return picture;
  }

  void TakeMenu() {
    GoTo("control-panel.settings");
    auto* button = dynamic_cast<QToolButton*>(
        face_.ViewOf(program_.Main())->WidgetOf(*program_.Find("main.nvcpl")));
    if (button == nullptr) return;
    button->menu()->popup(button->mapToGlobal(QPoint(0, button->height())));
    QCoreApplication::processEvents();
    Save(Together(Window(), *button->menu()), "menu");
    button->menu()->close();
  }

  void TakeRegistryEditor() {
    controls::ToolKey& key = program_.Main().Get<controls::ToolKey>("main.regedit");
    Act(key, [&key] { key.Click(); });
    const forms::Form& form = program_.FormOf("registry-editor");
    auto& values = form.Get<controls::ListBox>("registry-editor.values");
    Act(values, [&values] { (void)values.Choose(1); });
    QCoreApplication::processEvents();
    SaveWithTree(*face_.ViewOf(form), "registry-editor");
    form.TheWindow().UseClose();
  }

  void TakeAbout() {
    controls::ToolKey& key = program_.Main().Get<controls::ToolKey>("main.abouti");
    Act(key, [&key] { key.Click(); });
    const forms::Form& about = program_.FormOf("about");
    QCoreApplication::processEvents();
    SaveWithTree(*face_.ViewOf(about), "about");
    controls::Button& show = about.Get<controls::Button>("about.show-intro");
    Act(show, [&show] { show.Click(); });
    QCoreApplication::processEvents();
    const forms::Form& intro = program_.FormOf("intro");
    SaveWithTree(*face_.ViewOf(intro), "intro");
    intro.TheWindow().UseClose();
    about.TheWindow().UseClose();
  }

  void TakeProfileManager() {
    controls::ToolKey& key = program_.Main().Get<controls::ToolKey>("main.pedit");
    Act(key, [&key] { key.Click(); });
    const forms::Form& manager = program_.FormOf("profile-manager");
    auto& clocks = manager.Get<controls::CheckBox>("profile-manager.preset-clock-speed");
    Act(clocks, [&clocks] { (void)clocks.Use(1); });
    QCoreApplication::processEvents();
    SaveWithTree(*face_.ViewOf(manager), "profile-manager");
    controls::Button& browse = manager.Get<controls::Button>("profile-manager.browse");
    Act(browse, [&browse] { browse.Click(); });
    QCoreApplication::processEvents();
    const forms::Form& window = program_.FormOf("associated-application");
    SaveWithTree(*face_.ViewOf(window), "associated-application");
    window.TheWindow().UseClose();
    manager.TheWindow().UseClose();
  }

  /// The page after a minute and a half, then both pages of a recording.
  void TakeMonitoring() {
    GoTo("info.monitoring");
    program_.Timers().Advance(90'000);
    QCoreApplication::processEvents();
    SaveWithTree(Window(), "monitoring-page");
    if (!files_.WriteFile(monitor::kRecordingFile, MadeUpRecording())) return;
    program_.TheWindows().Open("monitoring");
    const forms::Form& form = program_.FormOf("monitoring");
    auto& next = form.Get<controls::Button>("monitoring.next");
    for (const char* name : {"monitoring-1", "monitoring-2"}) {
      QCoreApplication::processEvents();
      SaveWithTree(*face_.ViewOf(form), name);
      Act(next, [&next] { next.Click(); });
    }
    form.TheWindow().UseClose();
  }

  /// 250 samples of two processors, one of which can't be read.
  static std::string MadeUpRecording() {
    const monitor::RecordingFormat& format = monitor::kMonitoringFormat;
    std::string bytes = format.beginning(true);
    for (int i = 1; i <= 250; ++i) {
      const monitor::Sample sample{
          .cpu1 = 5 + i * i % 90, .cpu2 = 50 - i % 50, .free_percent = i < 120 ? 60 - i / 4 : 75};
      bytes += i == 60 ? "?\r\n?\r\n?\r\n" : format.sample(sample, i, true);
    }
    return bytes;
  }

  void TakeWizard() {
    controls::ToolKey& key = program_.Main().Get<controls::ToolKey>("main.pw");
    Act(key, [&key] { key.Click(); });
    QCoreApplication::processEvents();
    const forms::Form& form = program_.FormOf("performance-wizard");
    SaveWithTree(*face_.ViewOf(form), "performance-wizard");
    auto& fine = form.Get<controls::CheckBox>("performance-wizard.fine-adjust");
    Act(fine, [&fine] { (void)fine.Use(1); });
    auto& quality = form.Get<controls::Slider>("performance-wizard.quality");
    Act(quality, [&quality] { (void)quality.Use(8); });
    controls::Button& optimize = form.Get<controls::Button>("performance-wizard.optimize");
    Act(optimize, [&optimize] { optimize.Click(); });
    QCoreApplication::processEvents();
    SaveWithTree(*face_.ViewOf(form), "performance-wizard-optimized");
    form.TheWindow().UseClose();
  }

  void TakeOverclocking() {
    GoTo("overclocking");
    auto& pair = program_.Main().Get<controls::OptionButton>("overclocking.3d-speed");
    Act(pair, [&pair] { pair.Use(); });
    QCoreApplication::processEvents();
    Save(Window().grab(), "overclocking-3d");
    auto& enable = program_.Main().Get<controls::CheckBox>("overclocking.enable-overclocking");
    Act(enable, [&enable] { (void)enable.Use(0); });
    QCoreApplication::processEvents();
    Save(Window().grab(), "overclocking-off");
  }

  void TakeLowerPanel() {
    GoTo("direct3d.antialiasing");
    program_.Find("main.lower-panel-edge")->Hover();
    program_.Timers().Advance(2000);
    QCoreApplication::processEvents();
    Save(Window().grab(), "lower-panel");
  }

  void TakeHelp() {
    GoTo("direct3d.filtering");
    const std::pair<int, const char*> places[] = {
        {10, "help-right"}, {470, "help-left"}, {240, "help-corner"}};
    for (const auto& [left, name] : places) {
      Window().move(left, 40);
      QCoreApplication::processEvents();
      program_.Find("direct3d.filtering.texture-lod-bias")->Hover();
      program_.Timers().Advance(5000);
      QCoreApplication::processEvents();
      QWidget& help = *face_.ViewOf(program_.FormOf("help"));
      Save(OnScreen({&Window(), &help}), name);
      program_.FormOf("help").TheWindow().UseClose();
    }
  }

  /// The screen with these windows, the last in front.
  QPixmap OnScreen(std::initializer_list<QWidget*> windows) {
    const qreal ratio = Window().devicePixelRatioF();
    QPixmap picture(Window().screen()->size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::darkCyan);
    QPainter painter(&picture);
    for (QWidget* each : windows) painter.drawPixmap(each->mapToGlobal(QPoint()), each->grab());
    return picture;
  }

  /// A control that the card, the driver or the system disables, with the tip that says so.
  void TakeReason() {
    GoTo("direct3d.antialiasing");
    const controls::Control& control =
        *program_.Find("direct3d.antialiasing.transparency-antialiasing");
    QWidget* widget = face_.ViewOf(program_.Main())->WidgetOf(control);
    if (control.ToolTip().empty()) return;
    QToolTip::showText(widget->mapToGlobal(QPoint(30, 12)), widget->toolTip(), widget);
    QCoreApplication::processEvents();
    for (QWidget* each : QApplication::topLevelWidgets()) {
      if (each->inherits("QTipLabel")) Save(Together(Window(), *each), "reason");
    }
    QToolTip::hideText();
  }

  void TakeChange() {
    GoTo("direct3d.filtering");
    auto* box = dynamic_cast<QAbstractButton*>(
        face_.ViewOf(program_.Main())
            ->WidgetOf(*program_.Find("direct3d.filtering.trilinear-optimization")));
    if (box == nullptr) return;
    box->click();
    QCoreApplication::processEvents();
    Save(Window().grab(), "change");
  }

  forms::Program& program_;
  qt::Face& face_;
  platform::FilesApi& files_;
  QDir folder_;
  bool all_saved_ = true;
};

/// A screen of the usual size of the driver's years, on which nothing is seen.
QByteArray OffscreenPlatform(const QTemporaryDir& folder, int scale) {
  QFile file(folder.filePath("screen.json"));
  if (file.open(QIODevice::WriteOnly)) {
    file.write(QString(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": %1,
                           "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                   .arg(1024 * scale)
                   .arg(768 * scale)
                   .toUtf8());
  }
  return "offscreen:configfile=" + file.fileName().toLocal8Bit();
}

int Run(const Arguments& arguments) {
  const QTemporaryDir user_folder;
  qputenv("XDG_DATA_HOME", user_folder.path().toUtf8());
  platform::portable::PortableMachines machines;
  const auto opened = machines.Open({.store = user_folder.filePath("pictures.store").toStdString(),
                                     .machine = arguments.machine});
  if (!opened) {
    std::fprintf(stderr, "%s\n", opened.Reason().c_str());
    return 3;
  }
  face::PrintedDialog dialog;
  const platform::Services services = opened.Value()->ServicesFor(dialog);
  if (!arguments.language.empty()) {
    core::basRegistry options(services.registry);
    core::OwnOptions(options).Write(core::kLanguageValue, arguments.language);
  }
  face::ChangeLog changes;
  platform::Trace trace(changes.Sink());
  platform::TracingRegistry registry(services.registry, trace);
  forms::Program program({registry, services.display, services.version, services.system,
                          services.shell, services.files, services.dialog});
  if (!program.Start("")) return 3;
  // No button may look as if the mouse were over it.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
  qt::Face face(program, services.files, {.changes = &changes});
  QCoreApplication::processEvents();
  QDir().mkpath(arguments.folder);
  return Photographer(program, face, services.files, QDir(arguments.folder)).TakeAll() ? 0 : 3;
}

}  // namespace

int main(int argument_count, char** values) {
  const std::optional<Arguments> arguments = Parse(argument_count, values);
  if (!arguments) {
    std::fprintf(stderr,
                 "usage: kestrune_screenshots OUTPUT_FOLDER [--machine NAME] [--scale 1|2] "
                 "[--scheme light|dark|contrast] [--language NAME]\n");
    return 2;
  }
  const QTemporaryDir folder;
  qputenv("QT_QPA_PLATFORM", OffscreenPlatform(folder, arguments->scale.toInt()));
  qputenv("QT_SCALE_FACTOR", arguments->scale);
  QApplication::setStyle(new qt::FaceStyle);
  int own_count = 1;
  const QApplication application(own_count, values);
  QApplication::setPalette(MakePalette(arguments->scheme));
  return Run(*arguments);
}
