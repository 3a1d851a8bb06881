#include <array>
#include <cstddef>
#include <cstdint>

#include "stateful/disk.h"
#include "stateful/document.h"
#include "stateful/input.h"
#include "stateful/questions.h"
#include "stateful/services.h"
#include "stateful/session.h"

// Sources come, change and go, and after each step the services are asked: everything must be
// answered as a plain second model of the registry, the formats and the walks answers it.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace Zelk::Fuzzing;
  static const std::array<Subject, 3> kSubjects = {{
      {"Metamodel", MetamodelLibrary, MetamodelModel, MetamodelDocument, MetamodelQuestions},
      {"Authentication", AuthenticationLibrary, AuthenticationModel, AuthenticationDocument,
       AuthenticationQuestions},
      {"CLI", CliLibrary, CliModel, CliDocument, CliQuestions},
  }};
  static Disk disk;  // one folder a process
  Input input(data, size);
  Session(input.Pick(kSubjects), input, disk).Run();
  disk.Clear();
  return 0;
}
