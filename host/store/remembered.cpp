#include "host/store/remembered.h"

#include <algorithm>

#include "host/reading/ledger.h"
#include "host/store/coverage.h"
#include "host/store/place.h"
#include "host/store/schema.h"
#include "host/system/clock.h"

namespace host {
namespace {

class Remembered final : public KnownRecords {
 public:
  Remembered(const std::string& address, const Wish& wish) : database_(address), wish_(wish) {
    PrepareSchema(database_);
  }

  KnownInstrument ReadLast(const Run& run) override {
    run_ = run;
    former_.reset();
    KnownInstrument known;
    database_.Read([&] { known = LastAtPlace(); });
    return known;
  }

  KnownInstrument Of(const Title& title) override {
    KnownInstrument known{title.model, title.number};
    database_.Read([&] { Learn(known); });
    return known;
  }

 private:
  const ReadSettings& Asked() const { return *run_.settings; }

  KnownInstrument LastAtPlace() {
    KnownInstrument known;
    const std::string place = PlaceOf(run_);
    database_.Session() << "SELECT i.model, i.serial FROM instruments i "
                           "JOIN readings r ON r.instrument = i.id WHERE i.place = :place "
                           "ORDER BY r.id DESC LIMIT 1",
        soci::use(place), soci::into(known.model), soci::into(known.serial);
    Learn(known);
    former_ = newest_;
    return known;
  }

  // An instrument that is new where another one stood is read from the last record of that one.
  void Learn(KnownInstrument& known) {
    known.order = wish_.fill ? wish_.order : GapOrder::kAsRead;
    newest_.reset();
    const std::optional<long long> id = Find(known);
    if (id) LearnArchives(known, *id);
    if (id && wish_.fill) return;
    const bool instead = !id && former_ && !wish_.fromNamed;
    known.from = instead ? SystemTimeOf(*former_) : Asked().from;
  }

  std::string SerialOf(const KnownInstrument& known) const {
    return known.serial.empty() ? '@' + PlaceOf(run_) : known.serial;
  }

  std::optional<long long> Find(const KnownInstrument& known) {
    const std::string serial = SerialOf(known);
    const std::string kind = KindName(Asked().kind);
    long long id = 0;
    soci::session& session = database_.Session();
    session << "SELECT id FROM instruments WHERE serial = :serial AND model = :model "
               "AND kind = :kind",
        soci::use(serial), soci::use(known.model), soci::use(kind), soci::into(id);
    return session.got_data() ? std::optional(id) : std::nullopt;
  }

  void LearnArchives(KnownInstrument& known, long long id) {
    Selection selection;
    selection.serial = SerialOf(known);
    selection.groups = Asked().groups;
    for (const StoredSection& section : FindSections(database_, selection)) {
      if (section.instrument == id && PeriodOf(section.kind)) Learn(known, section);
    }
  }

  void Learn(KnownInstrument& known, const StoredSection& section) {
    const Period period = *PeriodOf(section.kind);
    const PeriodRange kept = KeptExtent(database_, section);
    if (SizeOf(kept) > 0) SeeRecord(StartOf(period, kept.last));
    KnownArchive archive{section.kind, section.system, WantedOf(section, period, kept), {}, {}};
    if (wish_.fill) TakeOutKnown(archive, section);
    known.archives.push_back(std::move(archive));
  }

  void SeeRecord(const TAVDT& time) {
    if (!newest_ || IsEarlier(*newest_, time)) newest_ = time;
  }

  // A record of K7 is there once its period is over; that of a period that is not costs less to ask
  // for than a run of its own for each archive.
  PeriodRange WantedOf(const StoredSection& section, Period period, const PeriodRange& kept) {
    PeriodRange wanted = ExpectedOf(Asked(), period);
    const TAVDT now = TavOf(wish_.toNamed ? LocalNow() : Asked().to);
    if (wish_.fill && Asked().kind == tav::Mode::kK7) {
      wanted.last = std::min(wanted.last, NumberOf(period, now).value_or(0) - 1);
    }
    if (!wish_.fill && SizeOf(kept) > 0) wanted.first = kept.last + 1;
    if (wish_.fill && !wish_.fromNamed) wanted.first = KnownExtent(database_, section).first;
    return wanted;
  }

  void TakeOutKnown(KnownArchive& archive, const StoredSection& section) {
    const std::string limit = DateText(TavOf(DaysAgo(wish_.askAgain)));
    for (const CoverageRange& range : CoverageOf(database_, section, archive.wanted).ranges) {
      if (range.state == RecordState::kKept) archive.kept.push_back(range.periods);
      const bool fresh = range.state == RecordState::kAbsent && range.learnt > limit;
      if (fresh) archive.absent.push_back(range.periods);
    }
  }

  static SYSTEMTIME DaysAgo(int days) {
    const TAVDT now = TavOf(LocalNow());
    TAVDT then = StartOf(Period::kDay, NumberOf(Period::kDay, now).value_or(0) - days);
    then.hour = now.hour;
    then.minute = now.minute;
    then.second = now.second;
    return SystemTimeOf(then);
  }

  Database database_;
  Wish wish_;
  Run run_;
  std::optional<TAVDT> newest_;  // record of the instrument that was learnt of last
  std::optional<TAVDT> former_;  // of the one that was read here last
};

}  // namespace

std::unique_ptr<KnownRecords> MakeRemembered(const std::string& address, const Wish& wish) {
  const std::string place = PlaceOfStore(address);
  if (wish.fill) RequireStore(place);
  return std::make_unique<Remembered>(place, wish);
}

}  // namespace host
