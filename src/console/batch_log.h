#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "files/games_log.h"

namespace feltmaster {

// The Games Log of a batch: players on many threads hand in their games as they end, and the log
// holds them in the order of the experiment. It takes the place of an older log when it is whole.
class BatchLog {
 public:
  // One sentence that names the file when it cannot be written, or an empty text. A file that is
  // there must be a Games Log.
  std::string Open(const std::string& path);

  // The finished games of game `index` of the batch, from 0: none, or several where the script
  // began the table anew. Every index that was begun is handed in once. Waits for the players who
  // are far behind, so that what waits for its turn stays small.
  void Take(std::int64_t index, std::string games);
  // No more games will come, and not all that were begun are there: nobody has to wait.
  void GiveUp();

  // What an interrupted batch has left waiting is written without the games that were not played.
  std::string PutInPlace();

 private:
  void WriteReady();
  std::string Sentence() const;

  std::string path_;
  NewGamesLog log_;
  std::optional<LogFault> fault_;  // the first one
  std::mutex mutex_;
  std::condition_variable moved_on_;
  std::map<std::int64_t, std::string> waiting_;
  std::int64_t next_ = 0;  // index whose games come next
  bool given_up_ = false;
};

}  // namespace feltmaster
