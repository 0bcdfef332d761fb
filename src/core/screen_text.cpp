// screen_text.cpp - the table of screen texts, English and Japanese side by
// side, and the choice of the language the screens speak.
#include "core/screen_text.h"

#include <string>

#include "core/diag.h"
#include "core/run_state.h"
#include "platform/platform.h"

struct ScreenText {
  int id;                        // the row's ScreenTextId, to keep the table in order
  const char *text[LANG_COUNT];  // English, Japanese
};

// A Japanese text carries the same printf conversions, in the same order, as
// the English one beside it.
static constexpr ScreenText kTexts[] = {
    {ST_BANNER,
     {"\n   Tactile Graphics Production System  (version " TACTO_VERSION ")\n   (1st September, 2018)\n",
      "\n   触図作成システム  Tacto  (バージョン " TACTO_VERSION ")\n   (2018年9月1日)\n"}},
    {ST_MENU,
     {"\n\n\n      Tacto Menu\n1: Set   2: Console  3: Test  4: Debug\n"
      "5: List  6: Print    7: Image 8: Edel\n9: Help  0: Quit",
      "\n\n\n      Tacto メニュー\n1: 設定    2: コンソール  3: テスト  4: デバッグ\n"
      "5: 一覧    6: 印刷        7: 画像    8: Edel\n9: ヘルプ  0: 終了"}},
    {ST_MENU_PROMPT, {"\n\ntacto: s c t d l p i e h q ? ", "\n\ntacto: 選択 s c t d l p i e h q ? "}},
    {ST_NOT_AVAILABLE,
     {"\n   this screen is not available in this version\n", "\n   この画面はこの版にはありません\n"}},
    {ST_QUIT_QUESTION, {"\n\nQuit job (Y/N)[Yes] ? ", "\n\n終了しますか (Y/N)[Yes] ? "}},
    {ST_HELD_BYTES,
     {"\ntacto: the page made %ld embosser bytes, not written to the terminal; to send them, "
      "redirect the output (> FILE), use --output=FILE or the Print item\n",
      "\ntacto: このページの点字プリンタ用データ %ld バイトは端末には書きません。送るには、"
      "出力をリダイレクトする (> FILE) か、--output=FILE か、印刷 (Print) を使ってください\n"}},

    {ST_BACK_HINT,
     {"(Keyin Period and Enter if return to Tacto menu.)",
      "(Tacto メニューに戻るにはピリオドと Enter を入力してください。)"}},
    {ST_PRESS_KEY, {"press any key ? ", "何かキーを押してください ? "}},
    {ST_MODE, {"mode", "モード"}},
    {ST_TACTO_FILE, {"Tacto file", "Tacto ファイル"}},
    {ST_PLOTTER_MODE, {"plotter mode", "プロッタモード"}},
    {ST_PRINTER_MODE, {"printer mode", "プリンタモード"}},
    {ST_MODE_CHOICES, {"(0: plotter mode, 1: printer mode)", "(0: プロッタモード, 1: プリンタモード)"}},

    {ST_SETUP_MENU,
     {"\n\nSetup Menu\n1: Printer and paper\n2: Serial port\n3: Language\n4: Alarm\n0: Return\nsetup ? ",
      "\n\n設定メニュー\n1: プリンタと用紙\n2: シリアルポート\n3: 言語\n4: アラーム\n0: 戻る\n設定 ? "}},
    {ST_PRINTER, {"printer", "プリンタ"}},
    {ST_PAPER, {"paper", "用紙"}},
    {ST_LANGUAGE_CHOICES, {"(0: English, 1: Japanese)", "(0: 英語 English, 1: 日本語 Japanese)"}},
    {ST_LANGUAGE, {"language", "言語"}},
    {ST_ENGLISH, {"English", "英語"}},
    {ST_JAPANESE, {"Japanese", "日本語"}},
    {ST_ALARM_CHOICES,
     {"(0: no alarm, 1: alarm when executed or error happen, 2: alarm only when error happen)",
      "(0: アラームなし, 1: 実行時とエラー時に鳴らす, 2: エラー時だけ鳴らす)"}},
    {ST_ALARM, {"alarm", "アラーム"}},
    {ST_LIST_TITLE, {"\n\nList a directory\n", "\n\nディレクトリの一覧\n"}},
    {ST_FILE_COUNT, {"   %zu files\n", "   ファイル %zu 個\n"}},

    {ST_SERIAL_TITLE, {"Serial Port Setting", "シリアルポートの設定"}},
    {ST_PORT_PROMPT, {"Port Name[%s] = ", "ポート名[%s] = "}},
    {ST_BAUD_PROMPT, {"\nBaudrate[%dbps] = ", "\n通信速度[%dbps] = "}},
    {ST_BITS_CHOICES,
     {"(5: 5bits, 6: 6bits, 7: 7bits, 8: 8bits)\n", "(5: 5ビット, 6: 6ビット, 7: 7ビット, 8: 8ビット)\n"}},
    {ST_BITS_PROMPT, {"bit length[%dbits] = ", "データ長[%dビット] = "}},
    {ST_FLOW_CHOICES, {"(0: None, 1: Xon / Xoff)\n", "(0: なし, 1: Xon / Xoff)\n"}},
    {ST_FLOW_PROMPT, {"Flow control[%s] = ", "フロー制御[%s] = "}},
    {ST_NONE, {"None", "なし"}},
    {ST_PARITY_CHOICES, {"(0: None, 1: Odd, 2: Even)\n", "(0: なし, 1: 奇数, 2: 偶数)\n"}},
    {ST_PARITY_PROMPT, {"Parity[%s] = ", "パリティ[%s] = "}},
    {ST_ODD, {"Odd", "奇数"}},
    {ST_EVEN, {"Even", "偶数"}},
    {ST_STOP_PROMPT, {"Stop bits [%s] = ", "ストップビット [%s] = "}},
    {ST_OTHER_PORTS,
     {"(/dev/usb/lp0, /path/to/file, socket://HOST:9100, cups:QUEUE, cups:)\n",
      "(/dev/usb/lp0, /ファイル/のパス, socket://ホスト:9100, cups:キュー, cups:)\n"}},
    {ST_SERIAL_RESULT,
     {"\nPort Name    = %s\nBaudRate     = %d\nbit length   = %d\nFlow control = %s\n"
      "Parity       = %s\nStop bits    = %.1f\n",
      "\nポート名       = %s\n通信速度       = %d\nデータ長       = %d\nフロー制御     = %s\n"
      "パリティ       = %s\nストップビット = %.1f\n"}},
    {ST_PORT_DESTINATION, {"Destination  = %s\n", "出力先         = %s\n"}},
    {ST_SERIAL_CONFIRM,
     {"Serial Port Setting correct (Y/N)[yes] ? ", "シリアルポートの設定はこれでよいですか (Y/N)[yes] ? "}},

    {ST_PRINT_TITLE, {"Print a command Program", "コマンドプログラムの印刷"}},
    {ST_COPIES_PROMPT, {"\nHow many copies (1-99)[%d] = ", "\n部数 (1-99)[%d] = "}},
    {ST_OUTPUT_CHOICES, {"(0: printer, 1: file, 2: exchange file)", "(0: プリンタ, 1: ファイル, 2: 交換ファイル)"}},
    {ST_OUTPUT, {"output", "出力"}},
    {ST_TO_PRINTER, {"printer", "プリンタ"}},
    {ST_TO_FILE, {"file", "ファイル"}},
    {ST_TO_EXCHANGE, {"exchange", "交換ファイル"}},
    {ST_OUTPUT_FILE, {"output file", "出力ファイル"}},
    {ST_EXCHANGE_FILE, {"exchange file", "交換ファイル"}},
    {ST_PRINT_CONFIRM, {"\nouput %s in %s (Y/N)[yes] ? ", "\n%s を %s に出力しますか (Y/N)[yes] ? "}},
    {ST_CONVERT_CONFIRM, {"\nconvert %s to %s (Y/N)[yes] ? ", "\n%s を %s に変換しますか (Y/N)[yes] ? "}},
    {ST_COPY, {"\n\ncopy %d: ", "\n\n%d 部目: "}},
    {ST_EXECUTED, {"\nTacto [%s] has executed", "\nTacto [%s] を実行しました"}},
    {ST_DESTINATION, {"\ndestination: %s", "\n出力先: %s"}},
    {ST_SENT_COPY, {"sent to %s", "%s に送りました"}},
    {ST_SENT_JOB, {"sent to %s as job %d", "%s にジョブ %d として送りました"}},
    {ST_SENT_LINE, {"\nsent to %s", "\n%s に送りました"}},
    {ST_WRITTEN_LINE, {"\nwritten to %s", "\n%s に書きました"}},

    {ST_IMAGE_CHOICES, {"(0: Postscript, 1: Bitmap)", "(0: PostScript, 1: ビットマップ)"}},
    {ST_POSTSCRIPT, {"Postscript", "PostScript"}},
    {ST_BITMAP, {"Bitmap", "ビットマップ"}},
    {ST_POSTSCRIPT_TITLE, {"Generate a PostScript file", "PostScript ファイルの作成"}},
    {ST_BITMAP_TITLE, {"Generate a Bitmap file", "ビットマップファイルの作成"}},
    {ST_POSTSCRIPT_FILE, {"postscript file", "PostScript ファイル"}},
    {ST_BITMAP_FILE, {"bitmap file", "ビットマップファイル"}},
    {ST_PRINT_KIND_CHOICES, {"(0: dot print, 1: ink print)", "(0: 点図, 1: 墨字)"}},
    {ST_DOT_PRINT, {"dot print", "点図"}},
    {ST_INK_PRINT, {"ink print", "墨字"}},
    {ST_POSTSCRIPT_DONE,
     {"\nPostScript file [%s] was generated\n", "\nPostScript ファイル [%s] を作成しました\n"}},
    {ST_BITMAP_DONE, {"\nBitmap file [%s] was generated\n", "\nビットマップファイル [%s] を作成しました\n"}},

    {ST_HELP_TITLE, {"Help: Tacto Command Menu (ver. %s)", "ヘルプ: Tacto コマンドメニュー (ver. %s)"}},
    {ST_HELP_PRESS_KEY, {"\npress any key", "\n何かキーを押してください"}},
};

// Every id has its row, at its own index.
static constexpr bool table_in_order() {
  if (sizeof kTexts / sizeof kTexts[0] != ST_COUNT) return false;
  for (int i = 0; i < ST_COUNT; i++)
    if (kTexts[i].id != i) return false;
  return true;
}
static_assert(table_in_order(), "kTexts needs one row per ScreenTextId, in the enum's order");

int screen_language() {
  return run_state.language == LANG_JAPANESE && terminal_utf8() ? LANG_JAPANESE : LANG_ENGLISH;
}

const char *screen_text_in(int id, int language) {
  if (id < 0 || id >= ST_COUNT) return "";
  if (language < 0 || language >= LANG_COUNT) language = LANG_ENGLISH;
  return kTexts[id].text[language];
}

const char *screen_text(int id) { return screen_text_in(id, screen_language()); }

void wait_for_key(const char *lead) { press_any_key((std::string(lead) + screen_text(ST_PRESS_KEY)).c_str()); }
