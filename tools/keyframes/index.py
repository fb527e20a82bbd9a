import os, re, sys
data = sys.argv[1]
names = sorted(f[:-5] for f in os.listdir(data + '/SkillData') if f.endswith('.conf'))
order = ['Stop', 'Walk', 'ShortWalk', 'LeftKick', 'LeftSideWalk', 'RightSideWalk', 'Style',
         'FrontStandUp', 'BackStandUp'] + ['Turn%s%d' % (s, n) for s in ('Left', 'Right') for n in (40, 30, 25, 15, 10, 5)]
names = [n for n in order if n in names] + [n for n in names if n not in order]
p = data + '/ConfigurationData/Config_FileAddresses.conf'
s = open(p).read()
s = re.sub(r'SkillDataFileCount = \d+', 'SkillDataFileCount = %d' % len(names), s)
head, _, _ = s.partition('[SkillDataFileName]')
body = '[SkillDataFileName]\n# one line per skill data file: <i> = <name>, i from 1 to SkillDataFileCount\n'
body += ''.join('%d = %s\n' % (i, n) for i, n in enumerate(names, 1))
open(p, 'w').write(head + body)
