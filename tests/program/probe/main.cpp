// Tells what the windows of other programs show. It only looks: acting is left to real clicks and
// keys. What it does is what no hand can do: to keep the clipboard, as any other program may, to
// press a button by a message, as a program that works for its user does, to change the resolution
// that a window is shown at, and to pull a drive's plug.
//
// Each line of the input is a question, such as "tree 65620"; each answer is one line, a JSON
// object with "answer" or "error". See the table below for the questions.
#include <windows.h>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

#include "tests/program/probe/questions.h"

namespace {

using probe::Json;

HWND readWindow(std::istream& arguments) {
    intptr_t handle = 0;
    arguments >> handle;
    return reinterpret_cast<HWND>(handle);
}

int readNumber(std::istream& arguments) {
    int number = 0;
    arguments >> number;
    return number;
}

void tellDrive(Json& json, std::istream& arguments) {
    std::string letter;
    arguments >> letter;
    json.number(static_cast<int64_t>(GetDriveTypeA((letter + ":\\").c_str())));
}

void removeDrive(Json& json, std::istream& arguments) {
    std::string letter;
    arguments >> letter;
    json.boolean(DefineDosDeviceA(DDD_REMOVE_DEFINITION, (letter + ":").c_str(), nullptr) != FALSE);
}

void tellListView(Json& json, std::istream& arguments) {
    const HWND window = readWindow(arguments);
    const int first = readNumber(arguments);
    probe::tellListView(json, window, first, readNumber(arguments));
}

void tellItemPlace(Json& json, std::istream& arguments) {
    const HWND window = readWindow(arguments);
    probe::tellItemPlace(json, window, readNumber(arguments));
}

void changeDpi(Json& json, std::istream& arguments) {
    const HWND window = readWindow(arguments);
    const int dpi = readNumber(arguments);
    RECT suggested{};
    for (LONG* edge : {&suggested.left, &suggested.top, &suggested.right, &suggested.bottom})
        *edge = readNumber(arguments);
    probe::changeDpi(json, window, dpi, suggested);
}

using Question = std::function<void(Json&, std::istream&)>;

Question about(void (*tell)(Json&, HWND)) {
    return [tell](Json& json, std::istream& arguments) { tell(json, readWindow(arguments)); };
}

Question alone(void (*tell)(Json&)) {
    return [tell](Json& json, std::istream&) { tell(json); };
}

const std::map<std::string, Question>& questions() {
    static const std::map<std::string, Question> all{
        {"windows", alone(probe::tellWindows)},
        {"tree", about(probe::tellTree)},
        {"menu", about(probe::tellMenu)},
        {"listbox", about(probe::tellListBox)},
        {"combobox", about(probe::tellComboBox)},
        {"listview", tellListView},
        {"item", tellItemPlace},
        {"progress", about(probe::tellProgress)},
        {"press", about(probe::pressButton)},
        {"tooltips", about(probe::tellToolTips)},
        {"cursors", about(probe::tellCursors)},
        {"cursor", alone(probe::tellCursor)},
        {"accessible", about(probe::tellAccessible)},
        {"dpi", changeDpi},
        {"clipboard", alone(probe::tellClipboard)},
        {"clipboardnumber", alone(probe::tellClipboardNumber)},
        {"holdclipboard", alone(probe::holdClipboard)},
        {"releaseclipboard", alone(probe::releaseClipboard)},
        {"drive", tellDrive},
        {"removedrive", removeDrive},
    };
    return all;
}

std::string answer(const std::string& line) {
    std::istringstream arguments(line);
    std::string name;
    arguments >> name;
    try {
        const auto question = questions().find(name);
        if (question == questions().end()) throw std::runtime_error("no such question");
        Json json;
        json.beginObject().key("answer");
        question->second(json, arguments);
        json.endObject();
        return json.str();
    } catch (const std::exception& failure) {
        const std::string text = failure.what();
        Json json;
        json.beginObject().member("error", std::wstring(text.begin(), text.end())).endObject();
        return json.str();
    }
}

}  // namespace

int main() {
    SetProcessDPIAware();
    std::string line;
    while (std::getline(std::cin, line))
        std::cout << answer(line) << std::endl;
    return 0;
}
