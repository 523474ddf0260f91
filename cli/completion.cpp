// SPDX-License-Identifier: MIT
//
// vaprix completion: what bash and zsh complete, from the options that the commands have.
#include <cstdio>
#include <memory>

#include "commands.hpp"
#include "help.hpp"

namespace vaprix::cli {
namespace {

// A command and those below it by the words that call it, "table saturation".
struct Path {
    std::string words;
    const CLI::App* command;
};
void add_paths(const CLI::App& command, const std::string& words, std::vector<Path>& out) {
    out.push_back({words, &command});
    for (const CLI::App* below : commands_of(command))
        add_paths(*below, (words.empty() ? "" : words + " ") + below->get_name(), out);
}

bool takes_functions(const CLI::App& command) {
    for (const Choice& choice : choices_of(command))
        if (choice.names[0] == "function" || choice.names[0] == "subject") return true;
    return false;
}

// The words that may follow a command, and after which options only some answers may.
void print_cases(const std::vector<Path>& paths) {
    std::puts("    local words_of= answers=");
    std::puts("    case \"$command\" in");
    for (const Path& path : paths) {
        std::string words, answers;
        for (const CLI::App* below : commands_of(*path.command)) words += below->get_name() + " ";
        for (const Choice& choice : choices_of(*path.command)) {
            if (choice.is_argument) {
                for (const std::string& answer : choice.answers) words += answer + " ";
                continue;
            }
            std::string either;
            for (const std::string& name : choice.names) {
                words += name + " ";
                either += (either.empty() ? "" : "|") + name;
            }
            if (choice.value.empty()) continue;
            std::string said;
            for (const std::string& answer : choice.answers) said += answer + " ";
            answers += " " + either + ") answers='" + said +
                       "';;";  // empty: a file, or the user's own words
        }
        std::printf("    \"%s\") words_of='%s'\n", path.words.c_str(), words.c_str());
        if (!answers.empty())
            std::printf("        case \"$previous\" in%s *) answers=-;; esac\n", answers.c_str());
        else
            std::puts("        answers=-");
        if (takes_functions(*path.command))
            std::puts("        words_of=\"$words_of $(vaprix list --names 2>/dev/null)\"");
        std::puts("        ;;");
    }
    std::puts("    esac");
}

// Finds `command` in the words before the one that is completed.
void print_command(const std::vector<Path>& paths, const char* words_before) {
    std::printf(
        "    local command= word\n    for word in %s; do\n        case \"$command $word\" in\n     "
        "   ",
        words_before);
    const char* before = "";
    for (const Path& path : paths) {
        if (path.words.empty()) continue;
        std::printf("%s\"%s%s\"", before, path.words.find(' ') == std::string::npos ? " " : "",
                    path.words.c_str());
        before = "|";
    }
    std::puts(") command=\"${command:+$command }$word\" ;;\n        esac\n    done");
}

void print_bash(const std::vector<Path>& paths) {
    std::puts("# Completion of vaprix for bash, printed by: vaprix completion bash\n_vaprix() {");
    std::puts("    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}");
    print_command(paths, "\"${COMP_WORDS[@]:1:COMP_CWORD-1}\"");
    print_cases(paths);
    std::puts("    [ \"$answers\" = - ] || words_of=$answers");
    std::puts("    COMPREPLY=($(compgen -W \"$words_of\" -- \"$current\"))");
    std::puts("}\ncomplete -o default -F _vaprix vaprix");
}

void print_zsh(const std::vector<Path>& paths) {
    std::puts(
        "#compdef vaprix\n# Completion of vaprix for zsh, printed by: vaprix completion "
        "zsh\n_vaprix() {");
    std::puts("    local previous=$words[CURRENT-1]");
    print_command(paths, "$words[2,CURRENT-1]");
    print_cases(paths);
    std::puts("    [[ $answers = - ]] || words_of=$answers");
    std::puts("    compadd -- ${=words_of} || _files");
    std::puts("}\n_vaprix \"$@\"");
}

}  // namespace

void add_completion(CLI::App& app) {
    const auto shell = std::make_shared<std::string>();
    CLI::App* const command =
        app.add_subcommand("completion", "Print what completes commands in a shell");
    command->add_option("shell", *shell, "bash or zsh")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh"}))
        ->type_name("bash|zsh");
    command->footer(
        "Examples:\n  vaprix completion bash >>~/.bash_completion\n"
        "  vaprix completion zsh >~/.zfunc/_vaprix");
    command->callback([&app, shell] {
        std::vector<Path> paths;
        add_paths(app, "", paths);
        (*shell == "bash" ? print_bash : print_zsh)(paths);
    });
}

}  // namespace vaprix::cli
