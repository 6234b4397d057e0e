#include "ProviderFixture.h"

namespace {

using Words = std::vector<std::string>;

TEST_F(ProviderTest, RejectsWhatThisCmdletDoesNotTake) {
  writeBytes(dir / "a.txt", "a");
  const std::string cmdlet = "Compress-Archive : ";
  const std::vector<std::pair<Words, std::string>> cases = {
      {{"Get-ChildItem"},
       "Get-ChildItem : The term 'Get-ChildItem' is not recognized as the name of a cmdlet, "
       "function, script file, or operable program. Check the spelling of the name, or if a path "
       "was included, verify that the path is correct and try again."},
      {{"-Command", "Compress-Archive"},
       "powershell: '-Command' is not supported; this powershell runs only the Compress-Archive "
       "cmdlet, given as its first word."},
      {{"Compress-Archive", "a.txt", "x", "-Level", "Fastest"},
       cmdlet + "A parameter cannot be found that matches parameter name 'Level'."},
      {{"Compress-Archive", "x", "-Path"},
       cmdlet + "Missing an argument for parameter 'Path'. Specify a parameter of type "
                "'System.String[]' and try again."},
      {{"Compress-Archive", "-Path", "a.txt", "-pa", "a.txt", "x"},
       cmdlet + "Cannot bind parameter because parameter 'Path' is specified more than once. To "
                "provide multiple values to parameters that can accept multiple values, use the "
                "array syntax. For example, \"-parameter value1,value2,value3\"."},
      {{"Compress-Archive", "a.txt", "x", "-Update", "-Force"},
       cmdlet + "Parameter set cannot be resolved using the specified named parameters."},
      {{"Compress-Archive", "a.txt", "x", "y"},
       cmdlet + "A positional parameter cannot be found that accepts argument 'y'."},
      {{"Compress-Archive", "-Update"},
       cmdlet + "Cannot process command because of one or more missing mandatory parameters: "
                "Path DestinationPath."},
      {{"Compress-Archive", "a.txt,", "x"}, cmdlet + "Missing argument in parameter list."},
      {{"Compress-Archive", "a.txt", "x", "-CompressionLevel", "Best"},
       cmdlet + "Cannot validate argument on parameter 'CompressionLevel'. The argument \"Best\" "
                "does not belong to the set \"Optimal,NoCompression,Fastest\" specified by the "
                "ValidateSet attribute. Supply an argument that is in the set and then try the "
                "command again."},
  };
  for (const auto& [words, message] : cases) {
    const ProviderRun result = run(words);
    EXPECT_EQ(result.status, 1) << words[1];
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, message + "\n");
  }
  EXPECT_EQ(filesInDir(), std::set<std::string>{"a.txt"});
}

TEST_F(ProviderTest, BindsParametersAsPowerShellDoes) {
  for (const char* name : {"a.txt", "b.txt", ".c.txt", "[x].txt"}) writeBytes(dir / name, name);
  const std::vector<std::pair<Words, std::set<std::string>>> cases = {
      {{"compress-archive", "-pa", "a.txt,b.txt", "-dest", "x.zip"}, {"a.txt", "b.txt"}},
      {{"COMPRESS-ARCHIVE", "?.txt", "x.zip", "-c", "nocompression"}, {"a.txt", "b.txt"}},
      {{"Compress-Archive", "-DestinationPath:x.zip", "-LiteralPath:[x].txt", "-Update:$true"},
       {"[x].txt"}},
      {{"Compress-Archive", "-Destination", "x.zip", "-Path", "[ab].txt,.c.txt"},
       {"a.txt", "b.txt", ".c.txt"}},
  };
  for (const auto& [words, names] : cases) {
    runQuietly(words);
    EXPECT_EQ(namesIn(readArchive(dir / "x.zip")), names) << words[1];
    fs::remove(dir / "x.zip");
  }
}

}  // namespace
