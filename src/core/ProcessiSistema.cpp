// Programs started and waited for, with fork and exec.
#include "core/ProcessiSistema.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace varena {

namespace {

bool Eseguibile(const std::string& p) { return access(p.c_str(), X_OK) == 0 && !std::filesystem::is_directory(p); }

}  // namespace

std::optional<std::string> TrovaProgramma(const std::string& programma) {
  if (programma.empty()) return std::nullopt;
  if (programma.find('/') != std::string::npos) return Eseguibile(programma) ? std::optional(programma) : std::nullopt;
  std::error_code e;
  const std::filesystem::path io = std::filesystem::read_symlink("/proc/self/exe", e);
  if (!e) {
    const std::string accanto = (io.parent_path() / programma).string();
    if (Eseguibile(accanto)) return accanto;
  }
  const char* path = std::getenv("PATH");
  std::string_view resto = path ? path : "";
  while (!resto.empty()) {
    const size_t f = resto.find(':');
    const std::string_view dir = resto.substr(0, f);
    resto = f == std::string_view::npos ? std::string_view() : resto.substr(f + 1);
    if (dir.empty()) continue;
    const std::string p = std::string(dir) + "/" + programma;
    if (Eseguibile(p)) return p;
  }
  return std::nullopt;
}

std::optional<int> ProcessiSistema::Esegui(const std::string& programma, const std::vector<std::string>& argomenti,
                                           const std::string& cartella) {
  const std::optional<std::string> percorso = TrovaProgramma(programma);
  if (!percorso) return std::nullopt;
  // Everything the child needs is made before the fork: after it only calls that are safe
  // in a child of a threaded process.
  std::vector<std::string> testi{*percorso};
  testi.insert(testi.end(), argomenti.begin(), argomenti.end());
  std::vector<char*> argv;
  for (std::string& t : testi) argv.push_back(t.data());
  argv.push_back(nullptr);
  std::vector<std::string> ambiente{"VARENA_APPUNTI=" + (appunti_ ? appunti_->Leggi() : std::string())};
  for (char** e = environ; *e; ++e)
    if (std::string_view(*e).substr(0, 15) != "VARENA_APPUNTI=") ambiente.emplace_back(*e);
  std::vector<char*> envp;
  for (std::string& t : ambiente) envp.push_back(t.data());
  envp.push_back(nullptr);
  const pid_t pid = fork();
  if (pid < 0) return std::nullopt;
  if (pid == 0) {
    if (!cartella.empty() && chdir(cartella.c_str()) != 0) _exit(126);
    execve(argv[0], argv.data(), envp.data());
    _exit(127);
  }
  int stato = 0;
  while (waitpid(pid, &stato, 0) < 0)
    if (errno != EINTR) return std::nullopt;
  if (WIFEXITED(stato)) return WEXITSTATUS(stato);
  return 128 + (WIFSIGNALED(stato) ? WTERMSIG(stato) : 0);
}

}  // namespace varena
